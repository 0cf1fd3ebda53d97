#include <QFile>
#include <QStringList>
#include <QTest>
#include <QUuid>
#include <QVector>

#include "device_bench.h"
#include "processes.h"
#include "scripted_line.h"
#include "services/translations.h"
#include "simulator_run.h"

using State = DeviceModel::State;
using States = QVector<State>;

namespace {

const QString c_serial = QStringLiteral("2210");

QStringList frames(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/// The answers of a wrench up to the frame, which gets none.
ScriptedLine::Answers answersUpTo(const QByteArray& frame)
{
    ScriptedLine::Answers answers = ScriptedLine::goodAnswers();
    answers.remove(frame);
    return answers;
}

} // namespace

/// What the window shows of one device, and what the wrench hears of it.
class TestDeviceModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsAtRest();
    void scansUntilItIsStopped();
    void worksADay();
    void showsWhatIsStored();
    void tellsTheProgramsWithTheirTargets();
    void tellsARefusedOrderAndGoesOn();
    void tellsALostLinkAndRestoresIt();
    void restoresProgramAndLock();
    void failsOnAMissingPort_data();
    void failsOnAMissingPort();
    void failsWhereNothingCanBeStored();
    void needsASerialNumber();
    void refusesOrdersAtRest();
    void stopsOrderlyWhile_data();
    void stopsOrderlyWhile();
    void endsWhileItIsBeingOpened();
    void beginsNothingAfterItsEnd();
    void forgetsTheResultsOfAnotherWrench();
    void worksAgainAfterAFailure();
    void speaksAnotherLanguage();
    void tellsItsPanel();
};

void TestDeviceModel::beginsAtRest()
{
    const DeviceBench bench(QStringLiteral("/dev/none"));
    QCOMPARE(bench.device.state(), State::Idle);
    QCOMPARE(bench.device.busyText(), QString());
    QVERIFY(!bench.device.hasProblem());
    QVERIFY(bench.device.result().isEmpty());
    QVERIFY(!bench.device.hasTarget());
    QVERIFY(!bench.device.isLockKnown());
    QCOMPARE(bench.device.name(), QStringLiteral("/dev/none"));
}

void TestDeviceModel::scansUntilItIsStopped()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start({QStringLiteral("--wrench"), QStringLiteral("2210,rssi=-70"), QStringLiteral("--wrench"),
                              QStringLiteral("2211,rssi=-40"), QStringLiteral("--scan-period"), QStringLiteral("50")}),
             simulator.report());
    DeviceBench bench(simulator.port());
    bench.device.scan();
    QCOMPARE(bench.device.state(), State::Scanning);
    QVERIFY(waitUntil([&] { return bench.device.wrenches().size() == 2; }));
    QCOMPARE(bench.device.wrenches().value(0).toMap().value(QStringLiteral("sn")).toString(), QStringLiteral("2211"));
    QCOMPARE(bench.device.state(), State::Scanning);
    bench.device.stop();
    QVERIFY(bench.waitFor(State::Idle));
    QCOMPARE(bench.states, (States{State::Scanning, State::Ending, State::Idle}));
    QCOMPARE(bench.trace().sent(), frames("ATS ATH"));
    QVERIFY(bench.hasEndedOrderly());
    QCOMPARE(bench.device.wrenches().size(), 2);
}

// Each frame that the dongle gets in a day, in its order.
void TestDeviceModel::worksADay()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start({QStringLiteral("--programs"), QStringLiteral("3")}), simulator.report());
    DeviceBench bench(simulator.port());
    DeviceModel& device = bench.device;
    device.scan();
    QVERIFY(waitUntil([&] { return device.wrenches().size() == 1; }));
    device.stop();
    QVERIFY(bench.waitFor(State::Idle));
    device.work(device.wrenches().value(0).toMap().value(QStringLiteral("sn")).toString());
    QVERIFY2(bench.waitFor(State::Working), bench.report());
    QStringList walk = frames("ATS ATH ATD_020000000001 ATH DT:1 SC:TL:2 RE:1");
    walk += frames("IDLE TR:C TR:N TR:C TR:N TR:C TR:N TR:C DT:0");
    walk.replaceInStrings(QStringLiteral("_"), QStringLiteral(" "));
    QCOMPARE(bench.framesAfter(0), walk); // another wrench, another trace

    int before = bench.frames();
    device.selectProgram(2);
    QCOMPARE(device.busyText(), QStringLiteral("going to program 2"));
    QVERIFY2(waitUntil([&] { return device.program() == 2; }), bench.report());
    QCOMPARE(bench.framesAfter(before), frames("IDLE TR:N TR:C"));
    QVERIFY(device.hasTarget());

    QCOMPARE(simulator.say(QStringLiteral("tighten 3")).left(2), QStringLiteral("ok"));
    QVERIFY2(bench.waitForResults(3), bench.report());
    QCOMPARE(device.result().value(QStringLiteral("program")).toInt(), 2);
    QCOMPARE(device.recent()->count(), 3);

    before = bench.frames();
    device.setLock(true);
    QVERIFY(waitUntil([&] { return device.isLocked(); }));
    QCOMPARE(bench.framesAfter(before), frames("DT:1"));
    QVERIFY2(simulator.say(QStringLiteral("wrenches")).contains(QLatin1String(", locked")), simulator.report());
    device.setLock(false);
    QVERIFY(waitUntil([&] { return !device.isLocked(); }));
    QCOMPARE(bench.framesAfter(before), frames("DT:1 DT:0"));

    QCOMPARE(simulator.say(QStringLiteral("tighten")).left(2), QStringLiteral("ok"));
    QVERIFY(bench.waitForResults(4));
    device.stop();
    QVERIFY(bench.waitFor(State::Idle));
    QVERIFY(bench.hasEndedOrderly());
    QVERIFY(HeldPort::isFree(simulator.port()));
    QVERIFY(!device.hasProblem());
    QCOMPARE(device.notes(), QString()); // no gap: nobody has missed a chunk beside the orders
    QCOMPARE(bench.states, (States{State::Scanning, State::Ending, State::Idle, State::Starting, State::Working,
                                   State::Ending, State::Idle}));
}

void TestDeviceModel::showsWhatIsStored()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    int stored = -1;
    QString number;
    connect(&bench.device, &DeviceModel::resultShown, this, [&] {
        HistoryStore store(bench.folder());
        QVERIFY(!store.openToRead());
        stored = store.database().value(QStringLiteral("SELECT count(*) FROM entries")).toInt();
        number = store.database().value(QStringLiteral("SELECT readingNumber FROM entries")).toString();
    });
    QVERIFY2(bench.work(), bench.report());
    simulator.say(QStringLiteral("tighten"));
    QVERIFY(bench.waitForResults(1));
    QCOMPARE(stored, 1);
    QCOMPARE(bench.device.result().value(QStringLiteral("number")).toString(), number);
    const QVariantMap result = bench.device.result();
    QCOMPARE(result.value(QStringLiteral("torqueText")).toString().toDouble(),
             result.value(QStringLiteral("torque")).toDouble());
    QCOMPARE(result.value(QStringLiteral("unit")).toString(), QStringLiteral("N.m"));
    QVERIFY(result.value(QStringLiteral("isGood")).toBool());
}

void TestDeviceModel::tellsTheProgramsWithTheirTargets()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    QVERIFY2(bench.work(), bench.report());
    QCOMPARE(bench.device.programs().size(), 2);
    const QVariantMap second = bench.device.programs().at(1).toMap();
    QCOMPARE(second.value(QStringLiteral("progId")).toInt(), 2);
    QCOMPARE(second.value(QStringLiteral("target")).toDouble(), 18.0);
    QCOMPARE(second.value(QStringLiteral("unit")).toString(), QStringLiteral("N.m"));
    QCOMPARE(second.value(QStringLiteral("angle")).toString(), QStringLiteral("105"));
    QCOMPARE(bench.device.program(), 0); // none was selected
    QVERIFY(!bench.device.hasTarget());
    bench.device.selectProgram(2);
    QVERIFY(waitUntil([&] { return bench.device.program() == 2; }));
    QCOMPARE(bench.device.target(), 18.0);
}

void TestDeviceModel::tellsARefusedOrderAndGoesOn()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    QVERIFY2(bench.work(), bench.report());
    QCOMPARE(simulator.say(QStringLiteral("fault err:4@1")).left(2), QStringLiteral("ok"));
    bench.device.selectProgram(2);
    QVERIFY(waitUntil([&] { return bench.device.hasProblem(); }));
    QCOMPARE(bench.device.problemWhat(), QStringLiteral("the program could not be selected"));
    QCOMPARE(bench.device.problemCause(), QStringLiteral("the line said \"ERR:4\""));
    QCOMPARE(bench.device.state(), State::Working);
    QCOMPARE(bench.device.program(), 0);
    bench.device.selectProgram(2);
    QVERIFY(!bench.device.hasProblem());
    QVERIFY(waitUntil([&] { return bench.device.program() == 2; }));
}

void TestDeviceModel::tellsALostLinkAndRestoresIt()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    QVERIFY2(bench.work(), bench.report());
    simulator.say(QStringLiteral("unplug"));
    QVERIFY(bench.waitFor(State::Restoring));
    QVERIFY2(bench.device.stateText().startsWith(QLatin1String("link lost: ")), bench.report());
    QVERIFY(!bench.device.busyText().isEmpty());
    simulator.say(QStringLiteral("replug"));
    QVERIFY2(bench.waitFor(State::Working), bench.report());
    QCOMPARE(bench.device.busyText(), QString());
    simulator.say(QStringLiteral("tighten"));
    QVERIFY(bench.waitForResults(1));
}

void TestDeviceModel::restoresProgramAndLock()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    QVERIFY2(bench.work(), bench.report());
    bench.device.selectProgram(2);
    QVERIFY(waitUntil([&] { return bench.device.program() == 2; }));
    bench.device.setLock(true);
    QVERIFY(waitUntil([&] { return bench.device.isLocked(); }));
    // Switched off and on, it has forgotten both.
    simulator.say(QStringLiteral("power 2210 off"));
    simulator.say(QStringLiteral("power 2210 on"));
    simulator.say(QStringLiteral("unplug"));
    QVERIFY(bench.waitFor(State::Restoring));
    simulator.say(QStringLiteral("replug"));
    QVERIFY2(bench.waitFor(State::Working), bench.report());
    const QString wrenches = simulator.say(QStringLiteral("wrenches"));
    QVERIFY2(wrenches.contains(QLatin1String(", locked")) && wrenches.contains(QLatin1String("program 2")),
             qPrintable(wrenches));
    QCOMPARE(bench.device.program(), 2);
    QVERIFY(bench.device.isLocked());
}

void TestDeviceModel::failsOnAMissingPort_data()
{
    QTest::addColumn<bool>("isScan");
    QTest::newRow("scan") << true;
    QTest::newRow("work") << false;
}

void TestDeviceModel::failsOnAMissingPort()
{
    QFETCH(bool, isScan);
    DeviceBench bench(QStringLiteral("/dev/none"));
    isScan ? bench.device.scan() : bench.device.work(c_serial);
    QVERIFY(waitUntil([&] { return bench.device.hasProblem() && bench.device.state() == State::Idle; }));
    QVERIFY2(bench.device.problemCause().contains(QLatin1String("/dev/none")), bench.report());
}

void TestDeviceModel::failsWhereNothingCanBeStored()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    QFile damaged(HistoryStore::fileIn(bench.folder()));
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write("this is no history");
    damaged.close();
    bench.device.work(c_serial);
    QVERIFY(waitUntil([&] { return bench.device.hasProblem(); }));
    QCOMPARE(bench.device.state(), State::Idle);
    QVERIFY2(bench.device.problemWhat().contains(QLatin1String("history")), bench.report());
    QCOMPARE(bench.trace().sent(), QStringList()); // no wrench was unlocked
}

void TestDeviceModel::needsASerialNumber()
{
    DeviceBench bench(QStringLiteral("/dev/none"));
    bench.device.work({});
    QCOMPARE(bench.device.problemWhat(), QStringLiteral("which wrench is not said"));
    QCOMPARE(bench.device.state(), State::Idle);
}

void TestDeviceModel::refusesOrdersAtRest()
{
    DeviceBench bench(QStringLiteral("/dev/none"));
    bench.device.selectProgram(1);
    QCOMPARE(bench.device.problemWhat(), QStringLiteral("no wrench is connected"));
    bench.device.forgetProblem();
    bench.device.setLock(true);
    QCOMPARE(bench.device.problemWhat(), QStringLiteral("no wrench is connected"));
}

// Held by a frame that gets no answer.
void TestDeviceModel::stopsOrderlyWhile_data()
{
    QTest::addColumn<QByteArray>("unanswered");
    QTest::addColumn<QString>("doing");
    QTest::newRow("connecting") << QByteArray("ATS") << "looking for the wrench 2210, and connecting";
    QTest::newRow("configuring") << QByteArray("RE:1") << "configuring the wrench";
    QTest::newRow("reading the programs") << QByteArray("IDLE") << "reading the programs";
}

void TestDeviceModel::stopsOrderlyWhile()
{
    QFETCH(QByteArray, unanswered);
    QFETCH(QString, doing);
    ScriptedLine line(answersUpTo(unanswered));
    DeviceBench bench(line.port());
    bench.device.work(c_serial);
    QVERIFY2(waitUntil([&] { return line.frames().contains(unanswered) && bench.device.stateText() == doing; }),
             bench.report());
    bench.device.stop();
    QCOMPARE(bench.device.state(), State::Ending);
    QVERIFY(bench.waitFor(State::Idle));
    QVERIFY(bench.hasEndedOrderly());
    QVERIFY(waitUntil([&] { return line.frames().constLast() == "ATH"; }));
    QVERIFY(!bench.device.hasProblem());
}

void TestDeviceModel::endsWhileItIsBeingOpened()
{
    DeviceBench bench(QStringLiteral("/dev/none"));
    int ends = 0;
    connect(&bench.device, &DeviceModel::sigEnded, this, [&] { ++ends; });
    bench.device.work(c_serial);
    QCOMPARE(bench.device.state(), State::Starting);
    bench.device.end();
    QVERIFY(waitUntil([&] { return ends == 1; }));
    QCOMPARE(bench.device.state(), State::Idle);
    QVERIFY(!bench.device.hasProblem());
}

void TestDeviceModel::beginsNothingAfterItsEnd()
{
    DeviceBench bench(QStringLiteral("/dev/none"));
    bench.device.end();
    bench.device.scan();
    bench.device.work(c_serial);
    QCOMPARE(bench.device.state(), State::Idle);
    QVERIFY(bench.device.hasEnded());
}

void TestDeviceModel::forgetsTheResultsOfAnotherWrench()
{
    SimulatorRun simulator;
    QVERIFY(
        simulator.start({QStringLiteral("--wrench"), c_serial, QStringLiteral("--wrench"), QStringLiteral("2211")}));
    DeviceBench bench(simulator.port());
    QVERIFY2(bench.work(), bench.report());
    simulator.say(QStringLiteral("tighten"));
    QVERIFY(bench.waitForResults(1));
    bench.device.stop();
    QVERIFY(bench.waitFor(State::Idle));
    QVERIFY(!bench.device.result().isEmpty()); // it stays to be read
    bench.device.work(QStringLiteral("2211"));
    QVERIFY(bench.device.result().isEmpty());
    QCOMPARE(bench.device.recent()->count(), 0);
    QVERIFY2(bench.waitFor(State::Working), bench.report());
    // Each has its own file.
    QVERIFY(QFile::exists(bench.folder() + QStringLiteral("/devices/2210.json")));
    QVERIFY(waitUntil([&] { return QFile::exists(bench.folder() + QStringLiteral("/devices/2211.json")); }));
}

void TestDeviceModel::worksAgainAfterAFailure()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start({QStringLiteral("--fault"), QStringLiteral("err:4@5")})); // "DT:1"
    DeviceBench bench(simulator.port());
    bench.device.work(c_serial);
    QVERIFY(waitUntil([&] { return bench.device.hasProblem() && bench.device.state() == State::Idle; }));
    QCOMPARE(bench.device.problemWhat(), QStringLiteral("the wrench could not be configured"));
    QVERIFY(bench.hasEndedOrderly());
    QVERIFY2(bench.work(), bench.report());
    QVERIFY(!bench.device.hasProblem());
}

void TestDeviceModel::speaksAnotherLanguage()
{
    DeviceBench bench(QStringLiteral("/dev/none"));
    int told = 0;
    connect(&bench.device, &DeviceModel::stateTextChanged, this, [&] { ++told; });
    translations::install(QStringLiteral("de"));
    bench.device.setLanguage(QStringLiteral("de"));
    QCOMPARE(told, 1);
    QCOMPARE(bench.device.stateText(), QStringLiteral("nicht verbunden"));
    bench.device.scan(); // it loads plugins, which bring texts of their own
    QCOMPARE(bench.device.stateText(), QStringLiteral("Schlüssel in Reichweite werden gesucht"));
    QVERIFY(bench.waitFor(State::Idle));
    QCOMPARE(bench.device.stateText(), QStringLiteral("nicht verbunden"));
    translations::install(QStringLiteral("en"));
}

void TestDeviceModel::tellsItsPanel()
{
    SimulatorRun simulator;
    QVERIFY(simulator.start());
    DeviceBench bench(simulator.port());
    QCOMPARE(bench.device.objectId(), QString());
    QVERIFY2(bench.work(), bench.report());
    QVERIFY(!QUuid(bench.device.objectId()).isNull());
    QVERIFY(!QUuid(bench.device.pluginUuid()).isNull());
    QVERIFY(bench.device.workplace() != nullptr);
}

QTEST_GUILESS_MAIN(TestDeviceModel)

#include "tst_device_model.moc"
