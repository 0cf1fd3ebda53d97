#include "options.h"

#include <QTest>

class TestSimulatorOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutOptionsThereIsOneWrenchWithThreePrograms();
    void wrenchesAreRead();
    void timesAreMilliseconds();
    void modesAreRead_data();
    void modesAreRead();
    void faultsAreRead();
    void replayIsRead();
    void speedIsRead();
    void wrenchesAreListed();
    void helpExplains();
    void wrongOptionsAreRefused_data();
    void wrongOptionsAreRefused();

private:
    static ParsedOptions parse(const char* arguments)
    {
        return parseOptions(QStringLiteral("wrench_simulator %1")
                                .arg(QLatin1String(arguments))
                                .split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }
};

void TestSimulatorOptions::withoutOptionsThereIsOneWrenchWithThreePrograms()
{
    const ParsedOptions parsed = parse("");
    QVERIFY(parsed.outcome == ParsedOptions::Outcome::Run);
    QCOMPARE(parsed.options.scenario.wrenches.size(), size_t(1));
    QCOMPARE(parsed.options.scenario.wrenches[0].serial, QByteArray("2210"));
    QCOMPARE(parsed.options.scenario.wrenches[0].programs.size(), size_t(3));
    QVERIFY(parsed.options.scenario.dongle.mode == Dongle::Mode::Redial);
    QVERIFY(parsed.options.scenario.faults.empty());
    QVERIFY(!parsed.options.hasConsole);
    QVERIFY(!parsed.options.exitsWithParent);
}

void TestSimulatorOptions::wrenchesAreRead()
{
    const ParsedOptions parsed =
        parse("--wrench A1,model=M2,mac=aa:bb:cc:dd:ee:0f,rssi=-71 --wrench B2 --programs 5 --rate 0.5");
    QVERIFY2(parsed.outcome == ParsedOptions::Outcome::Run, qPrintable(parsed.text));
    const std::vector<Wrench::Settings>& wrenches = parsed.options.scenario.wrenches;
    QCOMPARE(wrenches.size(), size_t(2));
    QCOMPARE(wrenches[0].serial, QByteArray("A1"));
    QCOMPARE(wrenches[0].model, QByteArray("M2"));
    QCOMPARE(wrenches[0].mac, QByteArray("AA:BB:CC:DD:EE:0F"));
    QCOMPARE(wrenches[0].rssiDbm, -71);
    QCOMPARE(wrenches[1].serial, QByteArray("B2"));
    QCOMPARE(wrenches[1].mac, QByteArray("02:00:00:00:00:02"));
    for (const Wrench::Settings& wrench : wrenches) {
        QCOMPARE(wrench.programs.size(), size_t(5));
        QCOMPARE(wrench.ratePerSecond, 0.5);
    }
}

void TestSimulatorOptions::timesAreMilliseconds()
{
    const ParsedOptions parsed = parse("--link-delay 1 --answer-delay 2 --scan-period 3 --tightening-time 4 --seed 5");
    QVERIFY2(parsed.outcome == ParsedOptions::Outcome::Run, qPrintable(parsed.text));
    QCOMPARE(parsed.options.scenario.dongle.linkDelayUs, qint64(1000));
    QCOMPARE(parsed.options.scenario.dongle.answerDelayUs, qint64(2000));
    QCOMPARE(parsed.options.scenario.dongle.scanPeriodUs, qint64(3000));
    QCOMPARE(parsed.options.scenario.wrenches[0].tighteningUs, qint64(4000));
    QCOMPARE(parsed.options.scenario.seed, quint32(5));
}

void TestSimulatorOptions::modesAreRead_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<int>("mode");
    QTest::newRow("redial") << QByteArray("--mode redial") << static_cast<int>(Dongle::Mode::Redial);
    QTest::newRow("drop") << QByteArray("--mode drop") << static_cast<int>(Dongle::Mode::Drop);
    QTest::newRow("transparent") << QByteArray("--mode transparent") << static_cast<int>(Dongle::Mode::Transparent);
}

void TestSimulatorOptions::modesAreRead()
{
    QFETCH(QByteArray, arguments);
    QFETCH(int, mode);
    QCOMPARE(static_cast<int>(parse(arguments.constData()).options.scenario.dongle.mode), mode);
}

void TestSimulatorOptions::faultsAreRead()
{
    const ParsedOptions parsed = parse("--echo --fault late:200@3 --fault split:2,7@4+");
    QVERIFY2(parsed.outcome == ParsedOptions::Outcome::Run, qPrintable(parsed.text));
    const std::vector<Fault>& faults = parsed.options.scenario.faults;
    QCOMPARE(faults.size(), size_t(3));
    QVERIFY(faults[0].kind == Fault::Kind::Echo);
    QVERIFY(faults[1].kind == Fault::Kind::Late);
    QCOMPARE(faults[1].number, 200);
    QVERIFY(faults[1].trigger == Fault::Trigger::AtFrame);
    QCOMPARE(faults[1].frame, 3);
    QVERIFY(faults[2].kind == Fault::Kind::Split);
    QCOMPARE(faults[2].waitMs, 7);
    QVERIFY(faults[2].trigger == Fault::Trigger::FromFrame);
}

void TestSimulatorOptions::replayIsRead()
{
    const ParsedOptions recorded = parse("--replay a.txt --link b");
    QVERIFY2(recorded.outcome == ParsedOptions::Outcome::Run, qPrintable(recorded.text));
    QCOMPARE(recorded.options.replay.tracePath, QStringLiteral("a.txt"));
    QVERIFY(recorded.options.replay.pace == Replayer::Pace::Recorded);
    QVERIFY(parse("--replay a.txt --pace fast").options.replay.pace == Replayer::Pace::Fast);
    QVERIFY(parse("").options.replay.tracePath.isEmpty());
}

void TestSimulatorOptions::speedIsRead()
{
    QCOMPARE(parse("").options.speed, 1.0);
    QCOMPARE(parse("--speed 12.5").options.speed, 12.5);
}

void TestSimulatorOptions::wrenchesAreListed()
{
    const ParsedOptions parsed = parse("--wrench A --wrench B --list-wrenches");
    QVERIFY(parsed.outcome == ParsedOptions::Outcome::Explain);
    QCOMPARE(parsed.text, QStringLiteral("A\nB\n"));
}

void TestSimulatorOptions::helpExplains()
{
    const ParsedOptions parsed = parse("--help");
    QVERIFY(parsed.outcome == ParsedOptions::Outcome::Explain);
    QVERIFY(parsed.text.contains(QStringLiteral("--exit-with-parent")));
    QVERIFY(parsed.text.contains(QStringLiteral("out-of-range[:[SERIAL][,MS]]")));
}

void TestSimulatorOptions::wrongOptionsAreRefused_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("names");
    const auto row = [](const char* arguments, const char* names) {
        QTest::newRow(arguments) << QByteArray(arguments) << QString::fromLatin1(names);
    };
    row("--bogus", "bogus");
    row("word", "\"word\" is not expected");
    row("--rate x", "--rate \"x\"");
    row("--rate -1", "--rate \"-1\"");
    row("--rate nan", "--rate \"nan\"");
    row("--rate 1001", "--rate \"1001\"");
    row("--mode loud", "--mode \"loud\"");
    row("--link-delay -1", "--link-delay \"-1\"");
    row("--answer-delay 1.5", "--answer-delay \"1.5\"");
    row("--scan-period 0", "--scan-period \"0\"");
    row("--tightening-time x", "--tightening-time \"x\"");
    row("--seed x", "--seed \"x\"");
    row("--speed 0", "--speed \"0\"");
    row("--speed 1001", "--speed \"1001\"");
    row("--scenario /none", "scenario /none: cannot be read");
    row("--replay a --scenario b", "--replay and --scenario");
    row("--programs 0", "--programs \"0\"");
    row("--programs 100", "--programs \"100\"");
    row("--programs /none", "/none");
    row("--fault quiet", "\"quiet\"");
    row("--wrench ,model=x", "--wrench \",model=x\"");
    row("--wrench A,model=", "model");
    row("--wrench A,mac=1", "\"1\" is no address");
    row("--wrench A,rssi=1", "rssi \"1\"");
    row("--wrench A,colour=red", "\"colour=red\"");
    row("--wrench A --wrench B,mac=02:00:00:00:00:01", "02:00:00:00:00:01");
    row("--link a --device b", "--link and --device");
    row("--baud fast", "--baud \"fast\" is no whole number from 50 to 4000000");
    row("--baud 0", "--baud \"0\"");
    row("--baud 9600 --device b", "--baud and --device");
    row("--replay a --fault silence", "--replay and --fault");
    row("--replay a --console", "--replay and --console");
    row("--replay a --pace slow", "--pace \"slow\"");
    row("--replay=", "--replay: name");
    row("--pace fast", "--pace is for a replay");
}

void TestSimulatorOptions::wrongOptionsAreRefused()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QString, names);
    const ParsedOptions parsed = parse(arguments.constData());
    QVERIFY(parsed.outcome == ParsedOptions::Outcome::Refuse);
    QVERIFY2(parsed.text.contains(names), qPrintable(parsed.text));
}

QTEST_GUILESS_MAIN(TestSimulatorOptions)
#include "tst_simulator_options.moc"
