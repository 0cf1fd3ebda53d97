#include <QJsonObject>
#include <QStringList>
#include <QTest>

#include "simulator_run.h"
#include "workplace_run.h"

class TestSessionLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesUpAfterTenSecondsAndNamesWhatItHeard();
    void endsAStepAtItsOwnLimit();
};

void TestSessionLimits::givesUpAfterTenSecondsAndNamesWhatItHeard()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--wrench"), QStringLiteral("2210"), QStringLiteral("--wrench"),
                              QStringLiteral("2211"), QStringLiteral("--scan-period"), QStringLiteral("1000")}),
             simulator.report());
    QVERIFY(session.startSession(simulator, {QStringLiteral("--serial-id"), QStringLiteral("9999")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    const QJsonObject error = session.event(QStringLiteral("error"));
    QCOMPARE(error.value(QLatin1String("step")).toString(), QStringLiteral("connect"));
    const QString reason = error.value(QLatin1String("reason")).toString();
    QVERIFY2(reason.contains(QLatin1String("2210 (")) && reason.contains(QLatin1String("2211 (")), session.report());
    const int elapsedMs = session.event(QStringLiteral("summary")).value(QLatin1String("elapsedMs")).toInt();
    QVERIFY2(elapsedMs >= 9500 && elapsedMs < 15000, session.report()); // a coarse timer: within five per cent
    // The command hangs up and closes the line, hangs up once more, and the session does both again.
    QCOMPARE(session.trace().sent(),
             (QStringList{QStringLiteral("ATS"), QStringLiteral("ATH"), QStringLiteral("ATH"), QStringLiteral("ATH")}));
    QVERIFY2(session.trace().remarks().count(QStringLiteral("closed")) == 2, session.report());
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionLimits::endsAStepAtItsOwnLimit()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--fault"), QStringLiteral("silence@5+")}), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    const QJsonObject error = session.event(QStringLiteral("error"));
    QCOMPARE(error.value(QLatin1String("step")).toString(), QStringLiteral("configure"));
    QVERIFY2(error.value(QLatin1String("reason")).toString().contains(QLatin1String("the time limit of 5 s")),
             session.report());
}

QTEST_GUILESS_MAIN(TestSessionLimits)

#include "tst_session_limits.moc"
