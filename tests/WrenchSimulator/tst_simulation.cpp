#include "scenario_reader.h"
#include "simulated_talk.h"

#include <QStringList>
#include <QTest>

namespace {
Scenario scenario(const QByteArray& text)
{
    QString error;
    const std::optional<Scenario> read = readScenario(text, QStringLiteral("test"), &error);
    if (!read) {
        qFatal("%s", qPrintable(error));
    }
    return *read;
}

/// Everything that chance can touch.
QByteArray stormy(int seed)
{
    return R"({"dongle": {"linkDelayMs": 20, "answerDelayMs": 3, "scanPeriodMs": 100},
        "wrenches": [{"serial": "A", "ratePerSecond": 20}, {"serial": "B"}],
        "faults": ["late:7%20", "flip%10", "cut%10", "garbage%10", "double%10", "split:3,2%20", "glue:2,30%20",
                   "silence%5", "echo%20", "flood:5,50%10", "endless:200,30%5", "lower-case%10", "lose-link%3",
                   "duplicate-serial%30", "foreign-echo%10", "err:9%5", "out-of-range:A,50%2", "unplug:40%2"],
        "timeLine": [{"atMs": 400, "do": "power A off"}, {"atMs": 450, "do": "power A on"},
                     {"atMs": 600, "do": "unplug 77"}],
        "seed": )" +
           QByteArray::number(seed) + "}";
}

/// The same talk each time, at the same simulated times.
QStringList talkInAStorm(int seed, int stepMs)
{
    SimulatedTalk talk(scenario(stormy(seed)));
    for (int round = 0; round < 12; ++round) {
        for (const char* frame : {"ATS", "ATH", "ATD 020000000001", "DT:0", "RE:1", "TR:C", "IDLE"}) {
            talk.send(frame);
            talk.pass(35, stepMs);
        }
    }
    return talk.log;
}
} // namespace

class TestSimulation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameSeedMakesTheSameBytesAtTheSameTimes();
    void howOftenItIsLookedAtChangesNothing();
    void otherSeedMakesOtherBytes();
    void eventsHappenAtTheirTimes();
    void timeLineMayBeginWithTheFirstFrame();
    void refusedEventIsNoted();
    void unpluggedLineComesBackAtItsTime();
    void unplugByFaultComesBackAtItsTime();
    void replugBeforeItsTimeIsTheOnlyOne();
    void wrenchWithoutPowerIsNotHeardAndForgets();
    void wrenchMayBeginOutOfRange();
    void blockedLineGetsAllLater();
    void quitEventEnds();
    void consoleAnswerComesAfterItsEffect();
};

void TestSimulation::sameSeedMakesTheSameBytesAtTheSameTimes()
{
    const QStringList first = talkInAStorm(5, 1);
    QVERIFY(first.size() > 100);
    QVERIFY(first.contains(QStringLiteral("! closed")));
    QCOMPARE(talkInAStorm(5, 1), first);
}

void TestSimulation::howOftenItIsLookedAtChangesNothing()
{
    QCOMPARE(talkInAStorm(5, 35), talkInAStorm(5, 1));
}

void TestSimulation::otherSeedMakesOtherBytes()
{
    QVERIFY(talkInAStorm(6, 1) != talkInAStorm(5, 1));
}

void TestSimulation::eventsHappenAtTheirTimes()
{
    SimulatedTalk talk(scenario(R"({"wrenches": [{"serial": "A"}],
        "timeLine": [{"atMs": 100, "do": "range A off"}, {"atMs": 200, "do": "range A on"}]})"));
    talk.pass(99);
    QVERIFY(talk.simulation.dongle().isInRange(0));
    talk.pass(1);
    QVERIFY(!talk.simulation.dongle().isInRange(0));
    talk.pass(99);
    QVERIFY(!talk.simulation.dongle().isInRange(0));
    talk.pass(1);
    QVERIFY(talk.simulation.dongle().isInRange(0));
}

void TestSimulation::timeLineMayBeginWithTheFirstFrame()
{
    SimulatedTalk talk(scenario(R"({"wrenches": [{"serial": "A"}], "timeLineFrom": "first-frame",
        "timeLine": [{"atMs": 100, "do": "range A off"}]})"));
    talk.pass(5000);
    QVERIFY(talk.simulation.dongle().isInRange(0));
    talk.send("ATH");
    talk.pass(99);
    QVERIFY(talk.simulation.dongle().isInRange(0));
    talk.pass(1);
    QVERIFY(!talk.simulation.dongle().isInRange(0));
}

void TestSimulation::refusedEventIsNoted()
{
    SimulatedTalk talk(scenario(R"({"timeLine": [{"atMs": 10, "do": "replug"}]})"));
    talk.pass(10);
    QCOMPARE(talk.notes,
             QStringList(QStringLiteral("time line, 10 ms, replug: error the line is plugged in: unplug it first")));
}

void TestSimulation::unpluggedLineComesBackAtItsTime()
{
    SimulatedTalk talk(scenario(R"({"timeLine": [{"atMs": 10, "do": "unplug 50"}]})"));
    talk.pass(10);
    QVERIFY(!talk.isPluggedIn);
    talk.pass(49);
    QVERIFY(!talk.isPluggedIn);
    talk.pass(1);
    QVERIFY(talk.isPluggedIn);
}

void TestSimulation::unplugByFaultComesBackAtItsTime()
{
    SimulatedTalk talk(scenario(R"({"faults": ["unplug:50@1"]})"));
    talk.send("ATH");
    QVERIFY(!talk.isPluggedIn);
    talk.pass(50, 50);
    QVERIFY(talk.isPluggedIn);
    QCOMPARE(talk.bytes(), QByteArray());
    talk.send("ATH");
    QCOMPARE(talk.bytes(), QByteArray("ATH\r\n"));
}

void TestSimulation::replugBeforeItsTimeIsTheOnlyOne()
{
    SimulatedTalk talk(scenario(R"({})"));
    QCOMPARE(talk.simulation.command(QStringLiteral("unplug 100"), talk.nowUs), QStringLiteral("ok unplugged"));
    talk.pass(10);
    QCOMPARE(talk.simulation.command(QStringLiteral("replug"), talk.nowUs), QStringLiteral("ok replugged"));
    talk.pass(1000);
    QCOMPARE(talk.log, QStringList({QStringLiteral("! closed"), QStringLiteral("! open")}));
    QCOMPARE(talk.notes, QStringList());
}

void TestSimulation::wrenchWithoutPowerIsNotHeardAndForgets()
{
    SimulatedTalk talk(scenario(R"({"dongle": {"linkDelayMs": 0, "answerDelayMs": 0}})"));
    for (const char* frame : {"ATD 020000000001", "DT:1", "TR:N"}) {
        talk.send(frame);
    }
    talk.takeLines();
    QCOMPARE(talk.simulation.command(QStringLiteral("power 2210 off"), talk.nowUs),
             QStringLiteral("ok wrench 2210 power off"));
    talk.send("ATS");
    talk.send("DI:C");
    QCOMPARE(talk.takeLines(), QStringList(QStringLiteral("ERR:1")));
    QVERIFY(talk.simulation.command(QStringLiteral("tighten"), talk.nowUs).startsWith(QStringLiteral("error")));
    talk.simulation.command(QStringLiteral("power 2210 on"), talk.nowUs);
    talk.send("DI:C");
    QCOMPARE(talk.takeLines(), QStringList(QStringLiteral("OK:0")));
    QCOMPARE(talk.simulation.dongle().wrench(0).programNumber(), 1);
}

void TestSimulation::wrenchMayBeginOutOfRange()
{
    SimulatedTalk talk(scenario(R"({"wrenches": [{"serial": "A", "inRange": false}, {"serial": "B"}]})"));
    talk.send("ATS");
    const QStringList lines = talk.takeLines();
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.at(0).contains(QStringLiteral(" B ")));
}

void TestSimulation::blockedLineGetsAllLater()
{
    SimulatedTalk talk(scenario(R"({})"));
    talk.takesBytes = false;
    talk.send("ATH");
    talk.pass(100);
    QCOMPARE(talk.bytes(), QByteArray());
    talk.takesBytes = true;
    talk.simulation.advance(talk.nowUs);
    QCOMPARE(talk.bytes(), QByteArray("ATH\r\n"));
}

void TestSimulation::quitEventEnds()
{
    SimulatedTalk talk(scenario(R"({"timeLine": [{"atMs": 10, "do": "quit"}]})"));
    talk.pass(9);
    QVERIFY(!talk.hasQuit);
    talk.pass(1);
    QVERIFY(talk.hasQuit);
}

void TestSimulation::consoleAnswerComesAfterItsEffect()
{
    SimulatedTalk talk(scenario(R"({"dongle": {"linkDelayMs": 0, "answerDelayMs": 0},
        "wrenches": [{"serial": "A", "tighteningMs": 0}]})"));
    talk.send("ATD 020000000001");
    talk.send("RE:1");
    talk.takeLines();
    talk.simulation.command(QStringLiteral("tighten 2"), talk.nowUs);
    QCOMPARE(talk.takeLines().size(), 2);
}

QTEST_GUILESS_MAIN(TestSimulation)
#include "tst_simulation.moc"
