#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QTest>

#include <cstdio>
#include <memory>

#include "cli/session_json_report.h"
#include "cli/session_text_report.h"
#include "history/history_format.h"

namespace {

QVariantMap eventData(const QString& torqueStatus)
{
    return {{QStringLiteral("convertedTorque"), QStringLiteral("12.05")},
            {QStringLiteral("direction"), QStringLiteral("0")},
            {QStringLiteral("torqueStatus"), torqueStatus},
            {QStringLiteral("snugTorqueAngle"), QStringLiteral("90")},
            {QStringLiteral("angleStatus"), QStringLiteral("0")},
            {QStringLiteral("readingNumber"), QStringLiteral("17")},
            {QStringLiteral("readingStatus"), QStringLiteral("0")},
            {QStringLiteral("eventCountNo"), 21},
            {QStringLiteral("progId"), 2}};
}

QVariantMap wrench(const QString& serialId)
{
    return {{QStringLiteral("mac"), QStringLiteral("AA:01")},
            {QStringLiteral("sn"), serialId},
            {QStringLiteral("rssi"), QStringLiteral("-58")}};
}

QVariantList programs()
{
    const QVariantMap preset{{QStringLiteral("unit"), QStringLiteral("N.m")}};
    return {QVariantMap{{QStringLiteral("progId"), 1},
                        {QStringLiteral("TRQ"), QStringLiteral("12")},
                        {QStringLiteral("ANG"), QStringLiteral("90")},
                        {QStringLiteral("presetData"), preset}},
            QVariantMap{{QStringLiteral("progId"), 2},
                        {QStringLiteral("TRQ"), QStringLiteral("118")},
                        {QStringLiteral("ANG"), QStringLiteral("105")},
                        {QStringLiteral("presetData"), preset}}};
}

HistoryRecord note(HistoryRecord::Kind kind, qint64 before, qint64 after)
{
    HistoryRecord record;
    record.kind = kind;
    record.counter = QStringLiteral("readingNumber");
    record.countBefore = before;
    record.countAfter = after;
    record.repeatOf = 12;
    return record;
}

SessionSummary summaryOf(int good, int notGood, int program)
{
    SessionSummary summary;
    summary.end = SessionSummary::End::Count;
    summary.good = good;
    summary.notGood = notGood;
    summary.program = program;
    summary.elapsedMs = 1234;
    return summary;
}

QVariantList namesakes()
{
    QVariantMap other = wrench(QStringLiteral("2210"));
    other.insert(QStringLiteral("mac"), QStringLiteral("AA:02"));
    other.insert(QStringLiteral("rssi"), QStringLiteral("-71"));
    return {wrench(QStringLiteral("2210")), other};
}

LinkReport opened()
{
    LinkReport report;
    report.state = QStringLiteral("open");
    return report;
}

LinkReport reportOf(LinkReport::Kind kind, const QString& message)
{
    LinkReport report;
    report.kind = kind;
    report.cause = LinkReport::Cause::Port;
    report.message = message;
    return report;
}

LinkReport lost(const QString& message)
{
    LinkReport report = reportOf(LinkReport::Kind::Lost, message);
    report.state = QStringLiteral("lost");
    return report;
}

LinkReport waiting()
{
    LinkReport report = reportOf(LinkReport::Kind::Waiting, QStringLiteral("it is not there"));
    report.cause = LinkReport::Cause::Range;
    report.attempt = 3;
    report.pauseMs = 740;
    return report;
}

LinkReport restored()
{
    LinkReport report = reportOf(LinkReport::Kind::Restored, QString());
    report.cause = LinkReport::Cause::Silence;
    report.attempt = 3;
    report.gapMs = 4321;
    return report;
}

/// A report that writes into a file.
template <class Report>
class Written
{
public:
    explicit Written(bool isJson)
        : m_file(std::tmpfile()), m_console(m_file, stderr, isJson), report(m_console, QStringLiteral("2210"))
    {}
    ~Written() { std::fclose(m_file); }

    QStringList lines() const
    {
        QByteArray bytes(int(std::ftell(m_file)), '\0');
        std::fseek(m_file, 0, SEEK_SET);
        const std::size_t size = std::fread(bytes.data(), 1, std::size_t(bytes.size()), m_file);
        QStringList lines = QString::fromUtf8(bytes.left(int(size))).split(QLatin1Char('\n'));
        lines.removeLast(); // behind the last line end
        return lines;
    }
    /// The only line, as an object without its time.
    QJsonObject object() const
    {
        const QStringList all = lines();
        QJsonObject object = QJsonDocument::fromJson(all.value(0).toUtf8()).object();
        object.remove(QStringLiteral("time"));
        return all.size() == 1 ? object : QJsonObject();
    }

private:
    Q_DISABLE_COPY(Written)
    std::FILE* m_file;
    Console m_console;

public:
    Report report;
};

class WrittenText : public Written<SessionTextReport>
{
public:
    WrittenText() : Written(false) {}
};

class WrittenJson : public Written<SessionJsonReport>
{
public:
    WrittenJson() : Written(true) {}
};

} // namespace

Q_DECLARE_METATYPE(Session::Step)
Q_DECLARE_METATYPE(HistoryRecord)

class TestSessionReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsThePort();
    void tellsASimulatedPort();
    void tellsAStepWithItsTime();
    void tellsAWrenchOnce();
    void tellsTheProgramsAsATable();
    void tellsTheSelectedProgram();
    void tellsThatItListens();
    void tellsResultsUnderTheirTitles();
    void tellsABadResult();
    void tellsWhatIsMissing_data();
    void tellsWhatIsMissing();
    void showsControlCharactersOfTheWrench();
    void tellsALostLineAndItsReturn();
    void tellsNothingOfTheFirstOpening();
    void tellsAnAttemptToCome();
    void tellsHowLongALinkWasAway();
    void tellsOfNamesakes();
    void tellsOfNamesakesOfWhichNoneIsKnownToBeTaken();
    void sumsUp_data();
    void sumsUp();
    void saysThatTheProgramWasNotSelected();

    void writesTheScan();
    void writesAStep_data();
    void writesAStep();
    void writesNothingForOtherSteps();
    void writesThePrograms();
    void writesTheSelection();
    void writesAResultUnchanged();
    void writesTheLink();
    void writesAnAttemptToCome();
    void writesARestoredLink();
    void tellsOfALinkToNobodyKnowsWhom();
    void writesNamesakes();
    void writesAGapAndARepeat();
    void writesTheSummary();
    void writesNoProgramThatIsNotKnown();
    void forgetsWhatAFailedStepHasFound();
};

void TestSessionReports::tellsThePort()
{
    WrittenText text;
    text.report.opened(QStringLiteral("/dev/x"), false);
    QCOMPARE(text.lines(), QStringList{QStringLiteral("Session with the wrench 2210 on /dev/x")});
}

void TestSessionReports::tellsASimulatedPort()
{
    WrittenText text;
    text.report.opened(QStringLiteral("/dev/x"), true);
    QCOMPARE(text.lines(), QStringList{QStringLiteral("Session with the wrench 2210 on /dev/x (simulated)")});
}

void TestSessionReports::tellsAStepWithItsTime()
{
    WrittenText text;
    text.report.stepStarted(Session::Step::Configure);
    text.report.stepDone(Session::Step::Configure, 1234);
    QCOMPARE(text.lines(),
             QStringList{QStringLiteral("  configure  locked, results switched on                       1.23 s")});
}

void TestSessionReports::tellsAWrenchOnce()
{
    WrittenText text;
    text.report.wrenchesHeard({wrench(QStringLiteral("1"))});
    text.report.wrenchesHeard({wrench(QStringLiteral("2")), wrench(QStringLiteral("1"))});
    QCOMPARE(text.lines(), (QStringList{QStringLiteral("             heard 1 (AA:01, -58 dBm)"),
                                        QStringLiteral("             heard 2 (AA:01, -58 dBm)")}));
}

void TestSessionReports::tellsTheProgramsAsATable()
{
    WrittenText text;
    text.report.programs(programs());
    text.report.stepDone(Session::Step::Programs, 100);
    QCOMPARE(text.lines(),
             (QStringList{QStringLiteral("             program  unit  target torque  angle"),
                          QStringLiteral("                   1  N.m              12     90"),
                          QStringLiteral("                   2  N.m             118    105"),
                          QStringLiteral("  programs   2 programs                                        0.10 s")}));
}

void TestSessionReports::tellsTheSelectedProgram()
{
    WrittenText text;
    text.report.selected(2, {});
    text.report.stepDone(Session::Step::Select, 30);
    QCOMPARE(text.lines(),
             QStringList{QStringLiteral("  select     program 2                                         0.03 s")});
}

void TestSessionReports::tellsThatItListens()
{
    WrittenText text;
    text.report.stepStarted(Session::Step::Listen);
    QCOMPARE(text.lines(), QStringList{QStringLiteral("  listen     waiting for results; Ctrl-C ends the session")});
}

void TestSessionReports::tellsResultsUnderTheirTitles()
{
    WrittenText text;
    text.report.result(eventData(QStringLiteral("0")));
    text.report.result(eventData(QStringLiteral("0")));
    QCOMPARE(
        text.lines(),
        (QStringList{
            QString(), QStringLiteral("   #    torque  status  direction  angle  status  reading  status  program"),
            QStringLiteral("   1     12.05       0          0     90       0       17       0        2  good"),
            QStringLiteral("   2     12.05       0          0     90       0       17       0        2  good")}));
}

void TestSessionReports::tellsWhatIsMissing_data()
{
    QTest::addColumn<HistoryRecord>("record");
    QTest::addColumn<QString>("text");
    const auto gap = HistoryRecord::Kind::Gap;
    QTest::newRow("one") << note(gap, 3, 5) << QStringLiteral("gap: reading 4 is missing");
    QTest::newRow("some") << note(gap, 3, 7) << QStringLiteral("gap: 3 readings are missing, 4 to 6");
    QTest::newRow("fallen back") << note(gap, 9, 4)
                                 << QStringLiteral("gap: the count of readings fell back from 9 to 4; how many are "
                                                   "missing cannot be told");
    HistoryRecord chunks = note(gap, 20, 23);
    chunks.counter = QStringLiteral("eventCountNo");
    QTest::newRow("of the input") << chunks
                                  << QStringLiteral("gap: of the input, the chunks 21 to 22 were not heard; results "
                                                    "may be missing");
    QTest::newRow("repeat") << note(HistoryRecord::Kind::Repeat, 0, 0)
                            << QStringLiteral("repeated after a reconnection, stored once (entry 12)");
}

void TestSessionReports::tellsWhatIsMissing()
{
    QFETCH(HistoryRecord, record);
    QFETCH(QString, text);
    WrittenText written;
    written.report.note(record);
    QCOMPARE(written.lines(), QStringList{QStringLiteral("  history    ") + text});
}

void TestSessionReports::tellsABadResult()
{
    WrittenText text;
    text.report.result(eventData(QStringLiteral("2")));
    QCOMPARE(text.lines().constLast(),
             QStringLiteral("   1     12.05       2          0     90       0       17       0        2  NOT GOOD"));
}

void TestSessionReports::showsControlCharactersOfTheWrench()
{
    WrittenText text;
    text.report.result({{QStringLiteral("convertedTorque"), QStringLiteral("\x1b[2J")}});
    text.report.wrenchesHeard({wrench(QStringLiteral("\x1b[2J"))});
    text.report.link(lost(QStringLiteral("\x1b[2J")));
    QCOMPARE(text.lines().join(QString()).count(QStringLiteral("\\x1b[2J")), 3);
    QVERIFY(!text.lines().join(QString()).contains(QChar(0x1b)));
}

void TestSessionReports::tellsALostLineAndItsReturn()
{
    WrittenText text;
    text.report.link(lost(QStringLiteral("The port went away.")));
    text.report.link(opened());
    QCOMPARE(text.lines(), (QStringList{QStringLiteral("  link       lost: The port went away."),
                                        QStringLiteral("  link       the line is open again")}));
}

void TestSessionReports::tellsNothingOfTheFirstOpening()
{
    WrittenText text;
    text.report.link(opened());
    QCOMPARE(text.lines(), QStringList());
}

void TestSessionReports::tellsAnAttemptToCome()
{
    WrittenText text;
    text.report.link(waiting());
    QCOMPARE(text.lines(), QStringList{QStringLiteral("  link       attempt 3 in 0.7 s; it is not there")});
}

void TestSessionReports::tellsHowLongALinkWasAway()
{
    WrittenText text;
    text.report.link(restored());
    QCOMPARE(text.lines(), QStringList{QStringLiteral("  link       restored after 4.32 s (attempt 3)")});
}

void TestSessionReports::tellsOfNamesakes()
{
    WrittenText text;
    text.report.namesakes(namesakes(), QStringLiteral("AA:02"));
    QCOMPARE(text.lines(),
             QStringList{QStringLiteral("  warning    2 wrenches answer to the serial number 2210: AA:01 (-58 dBm), "
                                        "AA:02 (-71 dBm); AA:02 was taken: switch the others off, or give each a "
                                        "number of its own")});
}

void TestSessionReports::tellsOfNamesakesOfWhichNoneIsKnownToBeTaken()
{
    WrittenText text;
    text.report.namesakes(namesakes(), QString());
    QVERIFY(text.lines().constFirst().contains(QStringLiteral("; which one has the link is not known: ")));
}

void TestSessionReports::sumsUp_data()
{
    QTest::addColumn<int>("good");
    QTest::addColumn<int>("notGood");
    QTest::addColumn<QString>("line");
    QTest::newRow("none") << 0 << 0 << "No result; 1.23 s; program 2";
    QTest::newRow("one") << 1 << 0 << "1 result: 1 good, 0 not good; 1.23 s; program 2";
    QTest::newRow("several") << 4 << 1 << "5 results: 4 good, 1 not good; 1.23 s; program 2";
}

void TestSessionReports::sumsUp()
{
    QFETCH(int, good);
    QFETCH(int, notGood);
    QFETCH(QString, line);
    WrittenText text;
    text.report.selected(2, {});
    text.report.summary(summaryOf(good, notGood, 2));
    QCOMPARE(text.lines(), QStringList{line});
}

void TestSessionReports::saysThatTheProgramWasNotSelected()
{
    WrittenText text;
    text.report.summary(summaryOf(1, 0, 1));
    QCOMPARE(text.lines(),
             QStringList{QStringLiteral(
                 "1 result: 1 good, 0 not good; 1.23 s; program 1 (the first one listed; none was selected)")});
}

void TestSessionReports::writesTheScan()
{
    WrittenJson json;
    json.report.wrenchesHeard({wrench(QStringLiteral("1"))});
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("scan")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("wrenches"),
                                          QJsonArray{QJsonObject::fromVariantMap(wrench(QStringLiteral("1")))}}}));
}

void TestSessionReports::writesAStep_data()
{
    QTest::addColumn<Session::Step>("step");
    QTest::addColumn<QString>("event");
    QTest::newRow("connect") << Session::Step::Connect << "connected";
    QTest::newRow("configure") << Session::Step::Configure << "configured";
}

void TestSessionReports::writesAStep()
{
    QFETCH(Session::Step, step);
    QFETCH(QString, event);
    WrittenJson json;
    json.report.stepDone(step, 240);
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), event},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("elapsedMs"), 240}}));
}

void TestSessionReports::writesNothingForOtherSteps()
{
    WrittenJson json;
    json.report.opened(QStringLiteral("/dev/x"), true);
    json.report.stepDone(Session::Step::Open, 1);
    json.report.stepDone(Session::Step::Unlock, 1);
    json.report.stepStarted(Session::Step::Listen);
    QCOMPARE(json.lines(), QStringList());
}

void TestSessionReports::writesThePrograms()
{
    WrittenJson json;
    json.report.programs(programs());
    json.report.stepDone(Session::Step::Programs, 240);
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("programs")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("programs"), QJsonArray::fromVariantList(programs())},
                                         {QStringLiteral("elapsedMs"), 240}}));
}

void TestSessionReports::writesTheSelection()
{
    WrittenJson json;
    json.report.selected(2, {{QStringLiteral("torque"), 1800}});
    json.report.stepDone(Session::Step::Select, 240);
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("selected")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("progId"), 2},
                                         {QStringLiteral("presetData"), QJsonObject{{QStringLiteral("torque"), 1800}}},
                                         {QStringLiteral("elapsedMs"), 240}}));
}

void TestSessionReports::writesAResultUnchanged()
{
    const QVariantMap data = eventData(QStringLiteral("\x1b 1"));
    WrittenJson json;
    json.report.result(data);
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("result")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("eventData"), QJsonObject::fromVariantMap(data)},
                                         {QStringLiteral("good"), false}}));
}

void TestSessionReports::writesTheLink()
{
    WrittenJson json;
    json.report.link(lost(QStringLiteral("The port went away.")));
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("link")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("connected"), false},
                                         {QStringLiteral("state"), QStringLiteral("lost")},
                                         {QStringLiteral("cause"), QStringLiteral("port")},
                                         {QStringLiteral("message"), QStringLiteral("The port went away.")}}));
}

void TestSessionReports::writesAnAttemptToCome()
{
    WrittenJson json;
    json.report.link(waiting());
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("link")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("connected"), false},
                                         {QStringLiteral("state"), QStringLiteral("waiting")},
                                         {QStringLiteral("cause"), QStringLiteral("range")},
                                         {QStringLiteral("attempt"), 3},
                                         {QStringLiteral("pauseMs"), 740},
                                         {QStringLiteral("message"), QStringLiteral("it is not there")}}));
}

void TestSessionReports::writesARestoredLink()
{
    WrittenJson json;
    json.report.link(restored());
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("link")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("connected"), true},
                                         {QStringLiteral("state"), QStringLiteral("restored")},
                                         {QStringLiteral("cause"), QStringLiteral("silence")},
                                         {QStringLiteral("attempt"), 3},
                                         {QStringLiteral("gapMs"), 4321},
                                         {QStringLiteral("message"), QString()}}));
}

void TestSessionReports::tellsOfALinkToNobodyKnowsWhom()
{
    WrittenText text;
    text.report.unverified();
    QVERIFY(text.lines().constFirst().startsWith(QStringLiteral("  warning    the dongle holds a link from before ")));
    WrittenJson json;
    json.report.unverified();
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("unverified")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")}}));
}

void TestSessionReports::writesNamesakes()
{
    WrittenJson json;
    json.report.namesakes(namesakes(), QStringLiteral("AA:02"));
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("namesakes")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("wrenches"), QJsonArray::fromVariantList(namesakes())},
                                         {QStringLiteral("taken"), QStringLiteral("AA:02")}}));
}

void TestSessionReports::writesAGapAndARepeat()
{
    HistoryRecord gap = note(HistoryRecord::Kind::Gap, 3, 7);
    WrittenJson json;
    json.report.note(gap);
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("gap")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("entry"), history_format::toJson(gap)}}));
    WrittenJson other;
    other.report.note(note(HistoryRecord::Kind::Repeat, 0, 0));
    QCOMPARE(other.object().value(QLatin1String("event")).toString(), QStringLiteral("repeat"));
}

void TestSessionReports::writesTheSummary()
{
    WrittenJson json;
    json.report.summary(summaryOf(4, 1, 2));
    QCOMPARE(json.object(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("summary")},
                                         {QStringLiteral("serialId"), QStringLiteral("2210")},
                                         {QStringLiteral("results"), 5},
                                         {QStringLiteral("good"), 4},
                                         {QStringLiteral("notGood"), 1},
                                         {QStringLiteral("progId"), 2},
                                         {QStringLiteral("endedBy"), QStringLiteral("count")},
                                         {QStringLiteral("elapsedMs"), 1234}}));
}

void TestSessionReports::writesNoProgramThatIsNotKnown()
{
    WrittenJson json;
    json.report.summary(summaryOf(0, 0, 0));
    QVERIFY(!json.object().contains(QStringLiteral("progId")));
}

void TestSessionReports::forgetsWhatAFailedStepHasFound()
{
    WrittenJson json;
    json.report.programs(programs());
    json.report.failed();
    json.report.stepDone(Session::Step::Connect, 1);
    QVERIFY(!json.object().contains(QStringLiteral("programs")));
}

QTEST_GUILESS_MAIN(TestSessionReports)
#include "tst_session_reports.moc"
