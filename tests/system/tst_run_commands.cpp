#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include "simulator_run.h"
#include "workplace_run.h"

namespace {

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// All that one run published, the later over the earlier.
QJsonObject resultsOf(const WorkplaceRun& run)
{
    QJsonObject all;
    const QList<QJsonObject> published = run.events(QStringLiteral("results"));
    for (const QJsonObject& each : published) {
        const QJsonObject results = each.value(QLatin1String("results")).toObject();
        for (auto result = results.begin(); result != results.end(); ++result) {
            all.insert(result.key(), result.value());
        }
    }
    return all;
}

} // namespace

class TestRunCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runsEachCommandByItsName_data();
    void runsEachCommandByItsName();
    void tellsTheResultsToPeople();
    void stopsAListeningCommandByItsStopCommand_data();
    void stopsAListeningCommandByItsStopCommand();
    void endsACommandWithoutAnswerAfterItsLimit();
    void interruptsACommandThatWaits();
    void failsWhenTheDeviceRefuses();
    void saysWhatCameWithTheLink();
    void runsACommandOfTheDriver();
    void scansTheWrenchesInRange();
    void scansUntilItIsInterrupted();
    void saysThatNoWrenchWasHeard();
};

void TestRunCommands::runsEachCommandByItsName_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QStringList>("sent");
    QTest::addColumn<QString>("told"); // besides "cmd_success"
    const auto row = [](const char* command, const QStringList& sent, const char* told = "") {
        QTest::newRow(command) << words(command) << sent << QString::fromUtf8(told);
    };
    row("checkSerialId", {}, "serialId");
    row("setKeepAlive", words("DI:C"));
    row("setKeepAliveFonction frame=DI:C responseFrame=OK:", {});
    row("searchAndConnect",
        {QStringLiteral("ATS"), QStringLiteral("ATH"), QStringLiteral("ATD 020000000001"), QStringLiteral("ATH")});
    row("sendInitConfig", words("DT:1 SC:TL:2 RE:1"));
    row("setLock lock=true", words("DT:1"));
    row("listProgram", words("IDLE TR:C TR:N TR:C TR:N TR:C"), "programList");
    row("getPresetData progId=2", {}, "presetData");
    row("setProgram progId=1", words("IDLE TR:C"), "presetData");
    row("setProgram progId=1", words("DT:0"), "presetData"); // it is current now: only unlocked
}

void TestRunCommands::runsEachCommandByItsName()
{
    // One after the other as in a session: what one leaves with the wrench and in the store is there for the next.
    static SimulatorRun simulator;
    static const QTemporaryDir store;
    if (simulator.pid() == 0) {
        QVERIFY2(simulator.start(), simulator.report());
    }
    QFETCH(QStringList, command);
    QFETCH(QStringList, sent);
    QFETCH(QString, told);
    WorkplaceRun run;
    run.keepStoreIn(store.path());
    QVERIFY(run.startOn(simulator.port(), words("run --json --serial-id 2210") + command));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QCOMPARE(resultsOf(run).value(QLatin1String("cmd_success")), QJsonValue(true));
    QVERIFY2(told.isEmpty() || resultsOf(run).contains(told), run.report());
    QCOMPARE(run.trace().sent(), sent);
}

void TestRunCommands::tellsTheResultsToPeople()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("run checkSerialId serialId=2210")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QVERIFY2(run.output().contains(QLatin1String("serialId: 2210\n")), run.report());
    QVERIFY2(run.output().contains(QLatin1String("cmd_success: true\n")), run.report());
}

void TestRunCommands::stopsAListeningCommandByItsStopCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QStringList>("sent");
    QTest::newRow("listenEventsData") << QStringLiteral("listenEventsData") << QStringLiteral("eventData")
                                      << QStringList();
    QTest::newRow("startDetection") << QStringLiteral("startDetection") << QStringLiteral("lastResults")
                                    << words("ATS ATH");
}

void TestRunCommands::stopsAListeningCommandByItsStopCommand()
{
    QFETCH(QString, command);
    QFETCH(QString, told);
    QFETCH(QStringList, sent);
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--rate 5 --mode transparent")), simulator.report());
    if (told == QLatin1String("eventData")) {
        for (const char* before : {"searchAndConnect", "sendInitConfig", "setLock lock=false"}) {
            WorkplaceRun run;
            QVERIFY(run.startOn(simulator.port(), words("run --serial-id 2210") + words(before)));
            QVERIFY2(run.waitForEnd(), run.report());
            QCOMPARE(run.exitStatus(), 0);
        }
    }
    WorkplaceRun listening;
    QVERIFY(listening.startOn(simulator.port(), words("run --json") << command));
    QVERIFY2(waitUntil([&] { return resultsOf(listening).contains(told) || !listening.isRunning(); }),
             listening.report());
    listening.sendSignal(SIGINT);
    QVERIFY2(listening.waitForEnd(), listening.report());
    QCOMPARE(listening.exitStatus(), 0);
    QVERIFY2(resultsOf(listening).contains(told), listening.report());
    QCOMPARE(listening.trace().sent(), sent);
}

void TestRunCommands::endsACommandWithoutAnswerAfterItsLimit()
{
    SimulatorRun simulator;
    WorkplaceRun run;
    QVERIFY2(simulator.start(words("--fault silence")), simulator.report());
    QVERIFY(run.startOn(simulator.port(), words("run sendInitConfig --limit 0.5")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 1);
    QVERIFY2(run.messages().contains(QLatin1String("the time limit")), run.report());
}

void TestRunCommands::interruptsACommandThatWaits()
{
    SimulatorRun simulator;
    WorkplaceRun run;
    QVERIFY2(simulator.start(words("--fault silence")), simulator.report());
    QVERIFY(run.startOn(simulator.port(), words("run sendInitConfig")));
    QVERIFY2(run.waitForFrames(1), run.report());
    run.sendSignal(SIGINT);
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 1);
    QVERIFY2(run.messages().contains(QLatin1String("interrupted")), run.report());
}

void TestRunCommands::failsWhenTheDeviceRefuses()
{
    // This dongle has never had a link.
    SimulatorRun simulator;
    WorkplaceRun run;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(run.startOn(simulator.port(), words("run sendInitConfig --json")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 1);
    QCOMPARE(run.trace().arrived(), QStringList{QStringLiteral("ERR:3")});
    QCOMPARE(resultsOf(run).value(QLatin1String("failed")), QJsonValue(true));
}

void TestRunCommands::saysWhatCameWithTheLink()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator, words("--count 1")));
    const auto tighten = [&simulator] {
        return simulator.say(QStringLiteral("tighten")).startsWith(QLatin1String("ok "));
    };
    QVERIFY2(waitForUnlock(session, simulator), session.report());
    QVERIFY(tighten());
    QVERIFY2(session.waitForEnd(), session.report());
    QVERIFY(waitUntil(tighten)); // and nobody is connected
    WorkplaceRun run;
    QVERIFY(run.startOn(simulator.port(), words("run --connect --serial-id 2210 setLock lock=true")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QVERIFY2(run.messages().contains(QLatin1String("1 tightening results came with the link, and are not stored")),
             run.report());
}

void TestRunCommands::runsACommandOfTheDriver()
{
    SimulatorRun simulator;
    WorkplaceRun run;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(run.startOn(simulator.port(),
                        {QStringLiteral("run"), QStringLiteral("driver/write"), QStringLiteral("frame=ATH\\r\\n")}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QCOMPARE(run.trace().sent(), QStringList{QStringLiteral("ATH")});
}

void TestRunCommands::scansTheWrenchesInRange()
{
    SimulatorRun simulator;
    WorkplaceRun scan;
    QVERIFY2(simulator.start({QStringLiteral("--wrench"), QStringLiteral("2210,rssi=-80"), QStringLiteral("--wrench"),
                              QStringLiteral("2211,rssi=-40"), QStringLiteral("--scan-period"), QStringLiteral("100")}),
             simulator.report());
    QVERIFY(scan.startOn(simulator.port(), words("scan --duration 3")));
    QVERIFY2(scan.waitForEnd(), scan.report());
    QCOMPARE(scan.exitStatus(), 0);
    QCOMPARE(scan.outputLines().filter(QRegularExpression(QStringLiteral("^ *22"))).size(), 2);
    QVERIFY2(scan.output().indexOf(QLatin1String("2211")) < scan.output().indexOf(QLatin1String("2210")),
             scan.report());
    QCOMPARE(scan.trace().sent(), words("ATS ATH"));
}

void TestRunCommands::scansUntilItIsInterrupted()
{
    SimulatorRun simulator;
    WorkplaceRun scan;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(scan.startOn(simulator.port(), words("scan --duration 0 --json")));
    QVERIFY2(scan.waitForEvents(QStringLiteral("scan")), scan.report());
    scan.sendSignal(SIGINT);
    QVERIFY2(scan.waitForEnd(), scan.report());
    QCOMPARE(scan.exitStatus(), 0);
    QCOMPARE(scan.trace().sent(), words("ATS ATH"));
}

void TestRunCommands::saysThatNoWrenchWasHeard()
{
    SimulatorRun simulator;
    WorkplaceRun scan;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(!simulator.say(QStringLiteral("range 2210 off")).isEmpty());
    QVERIFY(scan.startOn(simulator.port(), words("scan --duration 0.3")));
    QVERIFY2(scan.waitForEnd(), scan.report());
    QCOMPARE(scan.exitStatus(), 1);
    QVERIFY2(scan.messages().contains(QLatin1String("no wrench was heard")), scan.report());
}

QTEST_GUILESS_MAIN(TestRunCommands)

#include "tst_run_commands.moc"
