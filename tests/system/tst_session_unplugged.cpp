#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <csignal>

#include "processes.h"
#include "session_steps.h"
#include "simulator_run.h"
#include "workplace_run.h"

namespace {

QString reasonOf(const WorkplaceRun& session)
{
    return session.event(QStringLiteral("error")).value(QLatin1String("reason")).toString();
}

/// Whether the link was told to be back; attempts may have been told before.
bool isRestored(const WorkplaceRun& session)
{
    const QList<QJsonObject> links = session.events(QStringLiteral("link"));
    return std::any_of(links.cbegin(), links.cend(), [](const QJsonObject& link) {
        return link.value(QLatin1String("state")).toString() == QLatin1String("restored") &&
               link.value(QLatin1String("connected")).toBool();
    });
}

} // namespace

class TestSessionUnplugged : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void failsWithAClearMessageInEachStep_data();
    void failsWithAClearMessageInEachStep();
    void failsByTheLimitWhenThePortIsBackWithoutTheAnswer_data();
    void failsByTheLimitWhenThePortIsBackWithoutTheAnswer();
    void goesOnWhenThePortIsBackWhileListening();
    void canBeInterruptedWhileThePortIsAway();
    void takesNoProcessorTimeWhileThePortIsAway();
};

void TestSessionUnplugged::failsWithAClearMessageInEachStep_data()
{
    addStepRows();
}

void TestSessionUnplugged::failsWithAClearMessageInEachStep()
{
    QFETCH(QString, step);
    QFETCH(int, frame);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--fault"), faultAt("unplug", frame)}), simulator.report());
    QVERIFY(session.startSession(
        simulator, {QStringLiteral("--program"), QStringLiteral("1"), QStringLiteral("--limit"), QStringLiteral("5")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 3);
    QCOMPARE(session.event(QStringLiteral("error")).value(QLatin1String("step")).toString(), step);
    QVERIFY2(reasonOf(session).contains(QLatin1String("plug")), session.report());
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString(),
             QStringLiteral("failure"));
    QCOMPARE(session.trace().lastEntry(), QStringLiteral("! closed"));
}

void TestSessionUnplugged::failsByTheLimitWhenThePortIsBackWithoutTheAnswer_data()
{
    addStepRows();
}

void TestSessionUnplugged::failsByTheLimitWhenThePortIsBackWithoutTheAnswer()
{
    // The frame was not heard before the line was away, and nobody asks twice.
    QFETCH(QString, step);
    QFETCH(int, frame);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--fault"), faultAt("silence", frame)}), simulator.report());
    QVERIFY(session.startSession(
        simulator, {QStringLiteral("--program"), QStringLiteral("1"), QStringLiteral("--limit"), QStringLiteral("3")}));
    QVERIFY2(session.waitForFrames(frame), session.report());
    // It stands still until the line is back, so that it finds it there at its first look.
    session.sendSignal(SIGSTOP);
    // With the second answer the simulator has read what was there before the first question.
    QVERIFY(!simulator.say(QStringLiteral("wrenches")).isEmpty());
    QVERIFY(!simulator.say(QStringLiteral("wrenches")).isEmpty());
    QVERIFY(!simulator.say(QStringLiteral("fault none")).isEmpty()); // where the frame had not left yet
    QCOMPARE(simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), simulator.report());
    session.sendSignal(SIGCONT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(session.event(QStringLiteral("error")).value(QLatin1String("step")).toString(), step);
    QVERIFY2(reasonOf(session).contains(QLatin1String("the time limit of 3 s")), session.report());
    QVERIFY2(session.trace().remarks().contains(QStringLiteral("lost")), session.report());
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionUnplugged::goesOnWhenThePortIsBackWhileListening()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("5")}), simulator.report());
    QVERIFY(session.startSession(
        simulator, {QStringLiteral("--config"), QStringLiteral(CONFIGURATIONS "/keep_alive_often.json")}));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());

    QCOMPARE(simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(session.waitForEvents(QStringLiteral("link"), 2), session.report());
    const QJsonObject gone = session.events(QStringLiteral("link")).at(1);
    QCOMPARE(gone.value(QLatin1String("connected")).toBool(), false);
    QVERIFY2(gone.value(QLatin1String("message")).toString().contains(QLatin1String("plug its adapter in again")),
             session.report());
    QVERIFY(session.isRunning());

    const int results = session.events(QStringLiteral("result")).size();
    QVERIFY2(simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), simulator.report());
    QVERIFY2(waitUntil([&] { return isRestored(session) || !session.isRunning(); }), session.report());
    QVERIFY2(isRestored(session), session.report());
    QVERIFY2(session.waitForEvents(QStringLiteral("result"), results + 1), session.report());

    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionUnplugged::canBeInterruptedWhileThePortIsAway()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("5")}), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    QCOMPARE(simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(session.waitForEvents(QStringLiteral("link"), 2), session.report());
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString(),
             QStringLiteral("interrupt"));
    QCOMPARE(session.trace().lastEntry(), QStringLiteral("! closed"));
}

void TestSessionUnplugged::takesNoProcessorTimeWhileThePortIsAway()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("5")}), simulator.report());
    QVERIFY(session.startSession(simulator, {QStringLiteral("--duration"), QStringLiteral("3")}));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    QCOMPARE(simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(session.waitForEvents(QStringLiteral("link"), 2), session.report());
    const qint64 before = processes::processorMsOf(session.pid());
    qint64 after = before;
    QVERIFY2(waitUntil([&] {
                 const qint64 now = processes::processorMsOf(session.pid());
                 after = now > 0 ? now : after; // it is gone at the end
                 return !session.isRunning();
             }),
             session.report());
    QCOMPARE(session.exitStatus(), 0);
    QVERIFY2(after - before < 300, qPrintable(QStringLiteral("%1 ms").arg(after - before)));
}

QTEST_GUILESS_MAIN(TestSessionUnplugged)

#include "tst_session_unplugged.moc"
