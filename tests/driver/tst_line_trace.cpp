#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>

#include <cstdio>
#include <unistd.h>

#include "driver_fixture.h"
#include "line_trace.h"

namespace {

/// The bytes that an entry of a trace stands for, by the description of the format alone.
QByteArray unescaped(const QByteArray& text)
{
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != '\\') {
            bytes += text.at(i);
            continue;
        }
        ++i;
        switch (text.at(i)) {
        case 'r':
            bytes += '\r';
            break;
        case 'n':
            bytes += '\n';
            break;
        case 't':
            bytes += '\t';
            break;
        case 'x':
            bytes += QByteArray::fromHex(text.mid(i + 1, 2));
            i += 2;
            break;
        default:
            bytes += text.at(i);
        }
    }
    return bytes;
}

QByteArrayList linesOf(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArrayList lines = file.readAll().split('\n');
    lines.removeLast(); // behind the last line end
    return lines;
}

} // namespace

class TestLineTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsControlCharacters_data();
    void showsControlCharacters();
    void losesNoByte();
    void losesNoByteOfSingleByteChunks();
    void beginsWithItsFormatAndThePort();
    void writesBothDirectionsWithTheirMoment();
    void countsMomentsFromTheStart();
    void holdsEachEntryAtOnce();
    void isOffUnlessAskedFor();
    void isSwitchedOffByAnEmptyName();
    void beginsAnewWhenSwitchedOnAgain();
    void tellsWhatHappensToThePort();
    void tellsWhatIsDropped();
    void showsTheKeepAliveThatListenersDoNotSee();
    void writesToStandardError();
    void refusesAFileThatCannotBeWritten();
    void refusesANameThatIsNoText();
    void endsWithAMessageWhenTheDiskIsFull();
    void isSwitchedOnByTheConfiguration();
    void opensThePortAlsoWhenTheConfiguredTraceCannotBeWritten();

private:
    QString file() const { return m_folder->filePath(QStringLiteral("trace")); }
    Run setTrace(const QString& name) const { return m_driver->run("setTrace", {{QStringLiteral("file"), name}}); }
    /// The lines behind the first one.
    QByteArrayList entries() const { return linesOf(file()).mid(1); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DriverFixture> m_driver;
};

void TestLineTrace::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_driver = std::make_unique<DriverFixture>();
}

void TestLineTrace::showsControlCharacters_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a line") << QByteArray("ATS\r\n") << QByteArray("ATS\\r\\n");
    QTest::newRow("zero") << QByteArray(1, '\0') << QByteArray("\\x00");
    QTest::newRow("delete and beyond") << QByteArray("\x7f\x80\xff") << QByteArray("\\x7f\\x80\\xff");
    QTest::newRow("tab") << QByteArray("\t") << QByteArray("\\t");
    QTest::newRow("backslash") << QByteArray("\\r") << QByteArray("\\\\r");
    QTest::newRow("blank inside") << QByteArray("a b") << QByteArray("a b");
    QTest::newRow("blank at the end") << QByteArray("a ") << QByteArray("a\\x20");
}

void TestLineTrace::showsControlCharacters()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QByteArray, text);
    QCOMPARE(LineTrace::escaped(bytes), text);
}

void TestLineTrace::losesNoByte()
{
    QByteArray all;
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            all += static_cast<char>(first);
            all += static_cast<char>(second);
        }
    }
    const QByteArray text = LineTrace::escaped(all);
    QVERIFY(!text.contains('\n'));
    QCOMPARE(unescaped(text), all);
}

void TestLineTrace::losesNoByteOfSingleByteChunks()
{
    for (int value = 0; value < 256; ++value) {
        const QByteArray byte(1, static_cast<char>(value));
        QCOMPARE(unescaped(LineTrace::escaped(byte)), byte);
    }
}

void TestLineTrace::beginsWithItsFormatAndThePort()
{
    QVERIFY(setTrace(file()).succeeded());
    const QByteArray first = linesOf(file()).value(0);
    QVERIFY2(QRegularExpression(QStringLiteral("^# serial trace 1, /dev/fake, \\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d"
                                               "\\.\\d{3}$"))
                 .match(QString::fromUtf8(first))
                 .hasMatch(),
             first.constData());
}

void TestLineTrace::writesBothDirectionsWithTheirMoment()
{
    const Run listener = m_driver->listen();
    setTrace(file());
    const Run write = m_driver->write("ATS\r\n");
    m_driver->clock->advance(12);
    m_driver->port->arrive("RESP\r\nRE");
    QCOMPARE(entries(), QByteArrayList({"0.000000 > ATS\\r\\n", "0.012000 < RESP\\r\\nRE"}));
}

void TestLineTrace::countsMomentsFromTheStart()
{
    const Run listener = m_driver->listen();
    m_driver->clock->advance(5000);
    setTrace(file());
    m_driver->clock->advance(61001);
    m_driver->port->arrive("1");
    QCOMPARE(entries(), QByteArrayList{"61.001000 < 1"});
}

void TestLineTrace::holdsEachEntryAtOnce()
{
    const Run listener = m_driver->listen();
    setTrace(file());
    m_driver->port->arrive("1");
    QCOMPARE(entries().size(), 1);
    m_driver->port->arrive("2");
    QCOMPARE(entries().size(), 2);
}

void TestLineTrace::isOffUnlessAskedFor()
{
    const ManualClock clock;
    LineTrace trace(clock);
    QVERIFY(!trace.isOn());
    trace.arrived("1");
    QVERIFY(!trace.isOn());
}

void TestLineTrace::isSwitchedOffByAnEmptyName()
{
    const Run listener = m_driver->listen();
    setTrace(file());
    QVERIFY(setTrace(QString()).succeeded());
    m_driver->port->arrive("1");
    QCOMPARE(entries(), QByteArrayList());
}

void TestLineTrace::beginsAnewWhenSwitchedOnAgain()
{
    const Run listener = m_driver->listen();
    setTrace(file());
    m_driver->port->arrive("1");
    m_driver->clock->advance(1000);
    setTrace(file());
    m_driver->port->arrive("2");
    QCOMPARE(entries(), QByteArrayList{"0.000000 < 2"});
}

void TestLineTrace::tellsWhatHappensToThePort()
{
    setTrace(file());
    const Run listener = m_driver->listen();
    m_driver->port->fail(QStringLiteral("It went away."));
    m_driver->clock->advance(250);
    const Run closing = m_driver->run("closeConnection");
    QCOMPARE(entries(),
             QByteArrayList({"0.000000 ! opened", "0.000000 ! lost", "0.250000 ! opened", "0.250000 ! closed"}));
}

void TestLineTrace::tellsWhatIsDropped()
{
    m_driver->listen().stop();
    setTrace(file());
    m_driver->port->arrive("abc");
    QCOMPARE(entries(), QByteArrayList({"0.000000 < abc", "0.000000 ! 3 bytes dropped, nobody listens"}));
}

void TestLineTrace::showsTheKeepAliveThatListenersDoNotSee()
{
    const Run listener = m_driver->listen();
    m_driver->keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
    setTrace(file());
    m_driver->clock->advance(5000);
    m_driver->port->leave();
    m_driver->port->arrive("OK:1\r\n");
    QCOMPARE(entries(), QByteArrayList({"5.000000 > DI:C\\r\\n", "5.000000 < OK:1\\r\\n"}));
}

void TestLineTrace::writesToStandardError()
{
    const Run listener = m_driver->listen();
    const int standardError = ::dup(2);
    const QByteArray name = file().toLocal8Bit();
    QVERIFY(std::freopen(name.constData(), "w", stderr) != nullptr);
    const bool isOn = setTrace(QStringLiteral("-")).succeeded();
    m_driver->port->arrive("1\r\n");
    setTrace(QString());
    std::fflush(stderr);
    ::dup2(standardError, 2);
    ::close(standardError);
    QVERIFY(isOn);
    QCOMPARE(entries(), QByteArrayList{"0.000000 < 1\\r\\n"});
}

void TestLineTrace::refusesAFileThatCannotBeWritten()
{
    const QString name = m_folder->filePath(QStringLiteral("no/such/folder"));
    const Run run = setTrace(name);
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(name), qPrintable(run.error()));
}

void TestLineTrace::refusesANameThatIsNoText()
{
    const Run run = m_driver->run("setTrace");
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(QStringLiteral("\"file\"")), qPrintable(run.error()));
}

void TestLineTrace::endsWithAMessageWhenTheDiskIsFull()
{
    const ManualClock clock;
    LineTrace trace(clock);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("The trace of a port to /dev/full ends here")));
    trace.start(QStringLiteral("/dev/full"), QStringLiteral("a port"));
    QVERIFY(!trace.isOn());
}

void TestLineTrace::isSwitchedOnByTheConfiguration()
{
    m_driver->configure("trace", file());
    const Run listener = m_driver->listen();
    QCOMPARE(entries(), QByteArrayList{"0.000000 ! opened"});
}

void TestLineTrace::opensThePortAlsoWhenTheConfiguredTraceCannotBeWritten()
{
    m_driver->configure("trace", m_folder->filePath(QStringLiteral("no/such/folder")));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("The trace cannot be written to")));
    const Run listener = m_driver->listen();
    QVERIFY(m_driver->port->isOpen());
}

QTEST_GUILESS_MAIN(TestLineTrace)
#include "tst_line_trace.moc"
