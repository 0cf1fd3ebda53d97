#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <unistd.h>

#include "cli/console.h"
#include "cli/problem_report.h"

namespace {

struct Closing
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closing>;

File makeFile()
{
    return File(std::tmpfile());
}

QByteArray contents(const File& file)
{
    std::fflush(file.get());
    QByteArray bytes(int(std::ftell(file.get())), '\0');
    std::fseek(file.get(), 0, SEEK_SET);
    const std::size_t size = std::fread(bytes.data(), 1, std::size_t(bytes.size()), file.get());
    return bytes.left(int(size));
}

/// The results of a console on a terminal.
class Terminal
{
public:
    Terminal()
    {
        const int master = posix_openpt(O_RDWR | O_NOCTTY);
        grantpt(master);
        unlockpt(master);
        m_master.reset(fdopen(master, "r"));
        results.reset(std::fopen(ptsname(master), "w"));
    }
    /// What has come out, up to that end; what is written passes the terminal in pieces.
    QByteArray readTo(const QByteArray& end) const
    {
        constexpr int c_patienceMs = 5000;
        QByteArray bytes;
        pollfd master = {fileno(m_master.get()), POLLIN, 0};
        while (!bytes.endsWith(end) && ::poll(&master, 1, c_patienceMs) > 0) {
            char buffer[4096];
            const ssize_t size = ::read(master.fd, buffer, sizeof(buffer));
            if (size <= 0) {
                break;
            }
            bytes.append(buffer, int(size));
        }
        return bytes;
    }

    File results;

private:
    File m_master;
};

} // namespace

class TestWorkplaceConsole : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qunsetenv("NO_COLOR"); }

    void writesAnObjectOnOneLine();
    void letsNoControlCharacterIntoAnObject();
    void stampsTheTimeWithMillisecondsAndOffset();
    void showsControlCharacters_data();
    void showsControlCharacters();
    void letsNoEscapeSequenceIntoAMessage();
    void coloursOnATerminal();
    void coloursNothingWithNoColor();
    void coloursNothingInAFile();
    void showsProgressBelowTheResults();
    void showsNoProgressInAFile();
    void takesLinesBackOnATerminal();
    void takesNothingBackInAFile();
    void tellsOnlyResultsAndErrorsWhenQuiet();
    void showsNoProgressWhenQuiet();
    void remarksOnlyWhenVerbose();
    void noticesThatNobodyReads();
    void tellsAProblemOnLinesOfTheirOwn();
    void leavesOutWhatAProblemDoesNotSay();
    void tellsAProblemAsAnObject();
};

void TestWorkplaceConsole::writesAnObjectOnOneLine()
{
    const File results = makeFile();
    Console console(results.get(), stderr, true);
    console.object({{QStringLiteral("text"), QStringLiteral("a\nb\r\x1b[0m")}});
    const QByteArray written = contents(results);
    QCOMPARE(written.count('\n'), 1);
    QVERIFY(written.endsWith("\n"));
    QCOMPARE(QJsonDocument::fromJson(written).object().value(QStringLiteral("text")).toString(),
             QStringLiteral("a\nb\r\x1b[0m"));
    QVERIFY(!written.contains('\x1b'));
}

// JSON itself lets stand what some terminals obey.
void TestWorkplaceConsole::letsNoControlCharacterIntoAnObject()
{
    const QString text = QStringLiteral("a") + QChar(0x9b) + QChar(0x7f) + QChar(0x202e) + QChar(0x2028) + QChar(0xe9);
    const File results = makeFile();
    Console console(results.get(), stderr, true);
    console.object({{QStringLiteral("text"), text}});
    const QByteArray written = contents(results);
    QVERIFY2(written.contains("a\\u009b\\u007f\\u202e\\u2028\xc3\xa9"), written.constData());
    QCOMPARE(QJsonDocument::fromJson(written).object().value(QStringLiteral("text")).toString(), text);
}

void TestWorkplaceConsole::stampsTheTimeWithMillisecondsAndOffset()
{
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "Asia/Kolkata");
    tzset();
    const File results = makeFile();
    Console console(results.get(), stderr, true);
    console.object({});
    qputenv("TZ", zone);
    tzset();
    const QString time = QJsonDocument::fromJson(contents(results)).object().value(QStringLiteral("time")).toString();
    const QRegularExpression pattern(QStringLiteral(R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}\+05:30$)"));
    QVERIFY2(pattern.match(time).hasMatch(), qPrintable(time));
}

void TestWorkplaceConsole::showsControlCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << "RE:F:12 äÖ"
                           << "RE:F:12 äÖ";
    QTest::newRow("escape") << "\x1b[2J"
                            << "\\x1b[2J";
    QTest::newRow("line end") << "a\r\nb"
                              << "a\\x0d\\x0ab";
    QTest::newRow("delete") << "\x7f"
                            << "\\x7f";
    QTest::newRow("eight-bit escape") << QString(QChar(0x9b)) << "\\x9b";
    QTest::newRow("right to left") << QString(QChar(0x202e)) << "\\x202e";
    QTest::newRow("zero") << QString(QChar(0)) << "\\x00";
    QTest::newRow("line separator") << QString(QChar(0x2028)) << "\\x2028";
}

void TestWorkplaceConsole::showsControlCharacters()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QCOMPARE(Console::visible(text), shown);
}

void TestWorkplaceConsole::letsNoEscapeSequenceIntoAMessage()
{
    const File messages = makeFile();
    Console console(stdout, messages.get(), false);
    console.message(QStringLiteral("said \x1b[2J"));
    QCOMPARE(contents(messages), QByteArray("said \\x1b[2J\n"));
}

void TestWorkplaceConsole::coloursOnATerminal()
{
    const Terminal terminal;
    const Console console(terminal.results.get(), stderr, false);
    QCOMPARE(console.alarming(QStringLiteral("x")), QStringLiteral("\x1b[31mx\x1b[0m"));
    QCOMPARE(console.strong(QStringLiteral("x")), QStringLiteral("\x1b[1mx\x1b[0m"));
}

void TestWorkplaceConsole::coloursNothingWithNoColor()
{
    qputenv("NO_COLOR", "1");
    const Terminal terminal;
    const Console console(terminal.results.get(), stderr, false);
    QCOMPARE(console.alarming(QStringLiteral("x")), QStringLiteral("x"));
    QCOMPARE(console.strong(QStringLiteral("x")), QStringLiteral("x"));
}

void TestWorkplaceConsole::coloursNothingInAFile()
{
    const File results = makeFile();
    const Console console(results.get(), stderr, false);
    QCOMPARE(console.alarming(QStringLiteral("x")), QStringLiteral("x"));
}

void TestWorkplaceConsole::showsProgressBelowTheResults()
{
    const Terminal terminal;
    Console console(terminal.results.get(), stderr, false);
    console.progress(QStringLiteral("searching"));
    console.line(QStringLiteral("found"));
    console.progress({});
    console.line(QStringLiteral("done"));
    QCOMPARE(terminal.readTo("done\r\n"), QByteArray("\r\x1b[Ksearching\r\x1b[Kfound\r\nsearching\r\x1b[Kdone\r\n"));
}

void TestWorkplaceConsole::showsNoProgressInAFile()
{
    const File results = makeFile();
    Console console(results.get(), stderr, false);
    console.progress(QStringLiteral("searching"));
    console.line(QStringLiteral("found"));
    QCOMPARE(contents(results), QByteArray("found\n"));
}

void TestWorkplaceConsole::takesLinesBackOnATerminal()
{
    const Terminal terminal;
    Console console(terminal.results.get(), stderr, false);
    console.takeBack(0);
    console.takeBack(3);
    QCOMPARE(terminal.readTo("\x1b[J"), QByteArray("\x1b[3A\x1b[J"));
}

void TestWorkplaceConsole::takesNothingBackInAFile()
{
    const File results = makeFile();
    Console console(results.get(), stderr, false);
    console.takeBack(3);
    QCOMPARE(contents(results), QByteArray());
}

void TestWorkplaceConsole::tellsOnlyResultsAndErrorsWhenQuiet()
{
    const File results = makeFile();
    const File messages = makeFile();
    Console console(results.get(), messages.get(), false, Console::Manner::Quiet);
    console.line(QStringLiteral("a result"));
    console.detail(QStringLiteral("a detail"));
    console.message(QStringLiteral("an error"));
    console.notice(QStringLiteral("a notice"));
    console.remark(QStringLiteral("a remark"));
    QCOMPARE(contents(results), QByteArray("a result\n"));
    QCOMPARE(contents(messages), QByteArray("an error\n"));
}

void TestWorkplaceConsole::showsNoProgressWhenQuiet()
{
    const Terminal terminal;
    Console console(terminal.results.get(), stderr, false, Console::Manner::Quiet);
    console.progress(QStringLiteral("searching"));
    console.line(QStringLiteral("a result"));
    QCOMPARE(terminal.readTo("a result\r\n"), QByteArray("a result\r\n"));
}

void TestWorkplaceConsole::remarksOnlyWhenVerbose()
{
    for (const Console::Manner manner : {Console::Manner::Usual, Console::Manner::Verbose}) {
        const File messages = makeFile();
        Console console(stdout, messages.get(), false, manner);
        console.remark(QStringLiteral("a remark"));
        const QRegularExpression timed(QStringLiteral("^ *\\d+\\.\\d{3} a remark\n$"));
        const QString said = QString::fromUtf8(contents(messages));
        QCOMPARE(timed.match(said).hasMatch(), manner == Console::Manner::Verbose);
        QCOMPARE(said.isEmpty(), manner == Console::Manner::Usual);
    }
}

void TestWorkplaceConsole::noticesThatNobodyReads()
{
    const File full(std::fopen("/dev/full", "w"));
    Console console(full.get(), stderr, false);
    QVERIFY(console.isOpen());
    console.line(QStringLiteral("x"));
    QVERIFY(!console.isOpen());
}

void TestWorkplaceConsole::tellsAProblemOnLinesOfTheirOwn()
{
    const File messages = makeFile();
    Console console(stdout, messages.get(), false);
    tellProblem(console, {Problem::Kind::Device, QStringLiteral("connect"), QStringLiteral("it could not"),
                          QStringLiteral("nobody answers\n"), QStringLiteral("try again")});
    QCOMPARE(contents(messages), QByteArray("connect: it could not\n  why: nobody answers\\x0a\n  do:  try again\n"));
}

void TestWorkplaceConsole::leavesOutWhatAProblemDoesNotSay()
{
    const File messages = makeFile();
    Console console(stdout, messages.get(), false);
    tellProblem(console, {Problem::Kind::Device, QStringLiteral("connect"), QStringLiteral("it could not"), {}, {}});
    QCOMPARE(contents(messages), QByteArray("connect: it could not\n"));
}

void TestWorkplaceConsole::tellsAProblemAsAnObject()
{
    const File results = makeFile();
    const File messages = makeFile();
    Console console(results.get(), messages.get(), true);
    tellProblem(console, {Problem::Kind::SetUp, QStringLiteral("open"), QStringLiteral("w"), QStringLiteral("c"),
                          QStringLiteral("m")});
    QJsonObject object = QJsonDocument::fromJson(contents(results)).object();
    QVERIFY(object.contains(QStringLiteral("time")));
    object.remove(QStringLiteral("time"));
    QCOMPARE(object, (QJsonObject{{QStringLiteral("event"), QStringLiteral("error")},
                                  {QStringLiteral("step"), QStringLiteral("open")},
                                  {QStringLiteral("message"), QStringLiteral("w")},
                                  {QStringLiteral("reason"), QStringLiteral("c")},
                                  {QStringLiteral("mend"), QStringLiteral("m")}}));
    QVERIFY(!contents(messages).isEmpty());
}

QTEST_GUILESS_MAIN(TestWorkplaceConsole)
#include "tst_workplace_console.moc"
