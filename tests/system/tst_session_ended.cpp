#include <QStringList>
#include <QTest>

#include <csignal>

#include "processes.h"
#include "session_steps.h"
#include "simulator_run.h"
#include "workplace_run.h"

namespace {

constexpr int c_killedBySignal = 128;

QStringList tightening()
{
    return {QStringLiteral("--rate"), QStringLiteral("5")};
}

QString endedBy(const WorkplaceRun& session)
{
    return session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString();
}

/// Starts a session that the simulated wrench holds at the frame, and waits until it is there.
bool holdAt(int frame, SimulatorRun& simulator, WorkplaceRun& session)
{
    return simulator.start({QStringLiteral("--fault"), faultAt("silence", frame)}) &&
           session.startSession(simulator, {QStringLiteral("--program"), QStringLiteral("1")}) &&
           session.waitForFrames(frame);
}

/// Nobody hangs up: the dongle is linked still.
bool killASessionThatTakesResults(SimulatorRun& simulator, const QStringList& options = {})
{
    WorkplaceRun session;
    const bool takesResults =
        session.startSession(simulator, options) && session.waitForEvents(QStringLiteral("result"));
    session.sendSignal(SIGKILL);
    return takesResults && session.waitForEnd();
}

} // namespace

class TestSessionEnded : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsInAnOrderlyWayInEachStep_data();
    void endsInAnOrderlyWayInEachStep();
    void endsInAnOrderlyWayWhileListening_data();
    void endsInAnOrderlyWayWhileListening();
    void freesThePortWhenItIsKilledInEachStep_data();
    void freesThePortWhenItIsKilledInEachStep();
    void letsTheNextSessionInAfterItWasKilled();
    void dialsItsOwnWrenchAfterAnothersWasKilled();
    void takesWhatTheWrenchHasKeptSinceTheSessionBefore();
    void endsAtOnceAtTheSecondSignal();
    void endsItsSimulatorAfterASignal_data();
    void endsItsSimulatorAfterASignal();
    void endsWhenItsSimulatorIsKilled_data();
    void endsWhenItsSimulatorIsKilled();
    void goesOnListeningWhenTheSimulatorOfAnotherIsKilled();
};

void TestSessionEnded::endsInAnOrderlyWayInEachStep_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("signal");
    for (const SessionStep& step : c_sessionSteps) {
        QTest::addRow("SIGINT, %s, frame %d", step.name, step.frame) << step.frame << SIGINT;
        QTest::addRow("SIGTERM, %s, frame %d", step.name, step.frame) << step.frame << SIGTERM;
    }
}

void TestSessionEnded::endsInAnOrderlyWayInEachStep()
{
    QFETCH(int, frame);
    QFETCH(int, signal);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(holdAt(frame, simulator, session), session.report());
    session.sendSignal(signal);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(endedBy(session), QStringLiteral("interrupt"));
    QCOMPARE(session.events(QStringLiteral("error")).size(), 0);
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionEnded::endsInAnOrderlyWayWhileListening_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestSessionEnded::endsInAnOrderlyWayWhileListening()
{
    QFETCH(int, signal);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(tightening()), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    session.sendSignal(signal);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(endedBy(session), QStringLiteral("interrupt"));
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("results")).toInt(),
             session.events(QStringLiteral("result")).size());
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionEnded::freesThePortWhenItIsKilledInEachStep_data()
{
    addStepRows();
}

void TestSessionEnded::freesThePortWhenItIsKilledInEachStep()
{
    QFETCH(int, frame);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(holdAt(frame, simulator, session), session.report());
    session.sendSignal(SIGKILL);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), c_killedBySignal + SIGKILL);
    QVERIFY(HeldPort::isFree(simulator.port()));
}

void TestSessionEnded::letsTheNextSessionInAfterItWasKilled()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(tightening()), simulator.report());
    QVERIFY(killASessionThatTakesResults(simulator));
    WorkplaceRun next;
    QVERIFY(next.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("1")}));
    QVERIFY2(next.waitForEnd(), next.report());
    QCOMPARE(next.exitStatus(), 0);
    QVERIFY(next.trace().arrived().contains(QStringLiteral("ERR:2")));
    QCOMPARE(disorderAfter(next, simulator), QString());
}

void TestSessionEnded::dialsItsOwnWrenchAfterAnothersWasKilled()
{
    SimulatorRun simulator;
    const QString wrench = QStringLiteral("--wrench");
    QVERIFY2(
        simulator.start(tightening() + QStringList{wrench, QStringLiteral("2211"), wrench, QStringLiteral("2210")}),
        simulator.report());
    QVERIFY(killASessionThatTakesResults(simulator, {QStringLiteral("--serial-id"), QStringLiteral("2211")}));
    WorkplaceRun next;
    QVERIFY(next.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("1")}));
    QVERIFY2(next.waitForEnd(), next.report());
    QCOMPARE(next.exitStatus(), 0);
    QVERIFY(next.trace().arrived().contains(QStringLiteral("ERR:2")));
    QVERIFY(next.trace().sent().contains(QStringLiteral("ATD 020000000002")));
    const QJsonObject result = next.event(QStringLiteral("result")).value(QLatin1String("eventData")).toObject();
    QCOMPARE(result.value(QLatin1String("readingNumber")).toString(), QStringLiteral("1")); // its first
}

// Nobody is connected meanwhile; the wrench tells it as soon as it is dialled, and not again.
void TestSessionEnded::takesWhatTheWrenchHasKeptSinceTheSessionBefore()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    WorkplaceRun first;
    QVERIFY(first.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("1")}));
    const auto tighten = [&simulator] {
        return simulator.say(QStringLiteral("tighten")).startsWith(QLatin1String("ok "));
    };
    QVERIFY2(waitForUnlock(first, simulator), first.report());
    QVERIFY(tighten());
    QVERIFY2(first.waitForEnd(), first.report());
    QVERIFY(waitUntil(tighten));
    QVERIFY(waitUntil(tighten)); // when it has come to rest

    WorkplaceRun second;
    QVERIFY(second.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("2")}));
    QVERIFY2(second.waitForEnd(), second.report());
    QStringList readings;
    const QList<QJsonObject> results = second.events(QStringLiteral("result"));
    for (const QJsonObject& result : results) {
        readings.append(
            result.value(QLatin1String("eventData")).toObject().value(QLatin1String("readingNumber")).toString());
    }
    QCOMPARE(readings, (QStringList{QStringLiteral("2"), QStringLiteral("3")}));
}

void TestSessionEnded::endsAtOnceAtTheSecondSignal()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(tightening()), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    // Both are there before it has time for the first.
    session.sendSignal(SIGSTOP);
    session.sendSignal(SIGINT);
    session.sendSignal(SIGTERM);
    session.sendSignal(SIGCONT);
    QVERIFY2(session.waitForEnd(), session.report());
    const int status = session.exitStatus();
    QVERIFY2(status == c_killedBySignal + SIGINT || status == c_killedBySignal + SIGTERM, session.report());
    QCOMPARE(session.events(QStringLiteral("summary")).size(), 0);
    QVERIFY(HeldPort::isFree(simulator.port()));
}

void TestSessionEnded::endsItsSimulatorAfterASignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("event");
    for (const char* event : {"link", "result"}) {
        QTest::addRow("SIGINT after the first %s", event) << SIGINT << QString(QLatin1String(event));
        QTest::addRow("SIGTERM after the first %s", event) << SIGTERM << QString(QLatin1String(event));
        QTest::addRow("SIGKILL after the first %s", event) << SIGKILL << QString(QLatin1String(event));
    }
}

void TestSessionEnded::endsItsSimulatorAfterASignal()
{
    QFETCH(int, signal);
    QFETCH(QString, event);
    WorkplaceRun session;
    QVERIFY(session.start({QStringLiteral("session"), QStringLiteral("--json")}));
    QVERIFY2(session.waitForEvents(event), session.report());
    const QList<qint64> simulators = processes::childrenOf(session.pid());
    QCOMPARE(simulators.size(), 1);
    session.sendSignal(signal);
    QVERIFY2(session.waitForEnd(), session.report());
    if (signal == SIGKILL) {
        QCOMPARE(session.exitStatus(), c_killedBySignal + SIGKILL);
    } else {
        QCOMPARE(endedBy(session), QStringLiteral("interrupt"));
    }
    QTRY_VERIFY_WITH_TIMEOUT(!processes::isRunning(simulators.first()), c_patienceMs);
}

void TestSessionEnded::endsWhenItsSimulatorIsKilled_data()
{
    QTest::addColumn<QString>("event");
    QTest::newRow("while connecting") << QStringLiteral("link");
    QTest::newRow("while listening") << QStringLiteral("result");
}

void TestSessionEnded::endsWhenItsSimulatorIsKilled()
{
    QFETCH(QString, event);
    WorkplaceRun session;
    QVERIFY(session.start({QStringLiteral("session"), QStringLiteral("--json")}));
    QVERIFY2(session.waitForEvents(event), session.report());
    const QList<qint64> simulators = processes::childrenOf(session.pid());
    QCOMPARE(simulators.size(), 1);
    ::kill(pid_t(simulators.first()), SIGKILL);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 3);
    QCOMPARE(session.event(QStringLiteral("error")).value(QLatin1String("message")).toString(),
             QStringLiteral("the simulated wrench has gone"));
}

void TestSessionEnded::goesOnListeningWhenTheSimulatorOfAnotherIsKilled()
{
    // As with an adapter that is pulled: it may come back.
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(tightening()), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    simulator.sendSignal(SIGKILL);
    QVERIFY2(session.waitForEvents(QStringLiteral("link"), 2), session.report());
    QVERIFY(session.isRunning());
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(endedBy(session), QStringLiteral("interrupt"));
}

QTEST_GUILESS_MAIN(TestSessionEnded)

#include "tst_session_ended.moc"
