#include <QStringList>
#include <QTest>

#include "session_steps.h"
#include "simulator_run.h"
#include "workplace_run.h"

namespace {

QString reasonOf(const WorkplaceRun& session)
{
    return session.event(QStringLiteral("error")).value(QLatin1String("reason")).toString();
}

QString failedStepOf(const WorkplaceRun& session)
{
    return session.event(QStringLiteral("error")).value(QLatin1String("step")).toString();
}

QStringList option(const char* name, const QString& value)
{
    return {QLatin1String("--") + QLatin1String(name), value};
}

} // namespace

class TestSessionRefused : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysThatASilentWrenchWasEndedByTheTimeLimit_data();
    void saysThatASilentWrenchWasEndedByTheTimeLimit();
    void probesTheWrenchThatIsLinkedAlready();
    void failsWhenTheLinkedWrenchDoesNotAnswerTheProbe();
    void namesTheRefusalOfADongleThatDoesNotReopenTheLink();
    void namesTheRefusalOfAWrenchOutOfReach();
    void namesTheRefusalOfAFrame_data();
    void namesTheRefusalOfAFrame();
    void refusesAProgramThatTheWrenchDoesNotHave();
    void tellsPeopleWhatFailedWhyAndWhatToDo();
};

void TestSessionRefused::saysThatASilentWrenchWasEndedByTheTimeLimit_data()
{
    addStepRows();
}

void TestSessionRefused::saysThatASilentWrenchWasEndedByTheTimeLimit()
{
    QFETCH(QString, step);
    QFETCH(int, frame);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(option("fault", faultFrom("silence", frame))), simulator.report());
    QVERIFY(
        session.startSession(simulator, option("program", QStringLiteral("1")) + option("limit", QStringLiteral("2"))));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(failedStepOf(session), step);
    QVERIFY2(reasonOf(session).contains(QLatin1String("the time limit of 2 s")), session.report());
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString(),
             QStringLiteral("failure"));
    QVERIFY(session.event(QStringLiteral("summary")).value(QLatin1String("elapsedMs")).toInt() >= 2000);
    QVERIFY(!simulator.say(QStringLiteral("fault none")).isEmpty());
    QCOMPARE(session.trace().sent().constLast(), QStringLiteral("ATH"));
    QCOMPARE(session.trace().lastEntry(), QStringLiteral("! closed"));
}

void TestSessionRefused::probesTheWrenchThatIsLinkedAlready()
{
    // This dongle keeps the link, whoever says ATH: the first session leaves it open to the second.
    SimulatorRun simulator;
    QVERIFY2(simulator.start(option("mode", QStringLiteral("transparent")) + option("rate", QStringLiteral("10"))),
             simulator.report());
    WorkplaceRun first;
    QVERIFY(first.startSession(simulator, option("count", QStringLiteral("1"))));
    QVERIFY2(first.waitForEnd(), first.report());
    QCOMPARE(first.exitStatus(), 0);

    WorkplaceRun second;
    QVERIFY(second.startSession(simulator, option("count", QStringLiteral("1"))));
    QVERIFY2(second.waitForEnd(), second.report());
    QCOMPARE(second.exitStatus(), 0);
    QVERIFY(second.trace().arrived().contains(QStringLiteral("ERR:2")));
    // The second time to be sure that the dongle does not let go of it.
    const QStringList probe{QStringLiteral("ATS"), QStringLiteral("DI:C"), QStringLiteral("DT:0"),
                            QStringLiteral("ATH")};
    QCOMPARE(second.trace().sent().mid(0, 8), probe + probe);
    QCOMPARE(second.events(QStringLiteral("unverified")).size(), 1);
    QVERIFY(!second.events(QStringLiteral("result")).isEmpty());
}

void TestSessionRefused::failsWhenTheLinkedWrenchDoesNotAnswerTheProbe()
{
    SimulatorRun simulator;
    QVERIFY2(
        simulator.start(option("fault", QStringLiteral("err:2@1")) + option("fault", QStringLiteral("silence@2+"))),
        simulator.report());
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator, option("limit", QStringLiteral("2"))));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(failedStepOf(session), QStringLiteral("connect"));
    QVERIFY2(reasonOf(session).contains(QLatin1String("the time limit of 2 s")), session.report());
    QVERIFY2(reasonOf(session).contains(QLatin1String("ERR:2")), session.report());
}

void TestSessionRefused::namesTheRefusalOfADongleThatDoesNotReopenTheLink()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(option("mode", QStringLiteral("drop"))), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(failedStepOf(session), QStringLiteral("configure"));
    QCOMPARE(reasonOf(session), QStringLiteral("the line said \"ERR:3\""));
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionRefused::namesTheRefusalOfAWrenchOutOfReach()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(option("fault", QStringLiteral("out-of-range:2210@3"))), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(failedStepOf(session), QStringLiteral("connect"));
    QCOMPARE(reasonOf(session), QStringLiteral("the line said \"ERR:1\""));
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionRefused::namesTheRefusalOfAFrame_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("step");
    QTest::newRow("the scan") << "err:4@1"
                              << "connect";
    QTest::newRow("dialling") << "err:1@3"
                              << "connect";
    QTest::newRow("the lock") << "err:5@5"
                              << "configure";
    QTest::newRow("all tries of IDLE") << "err:5@8+"
                                       << "programs";
}

void TestSessionRefused::namesTheRefusalOfAFrame()
{
    QFETCH(QString, fault);
    QFETCH(QString, step);
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(option("fault", fault)), simulator.report());
    QVERIFY(session.startSession(simulator));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(failedStepOf(session), step);
    const QString code = fault.section(QLatin1Char('@'), 0, 0).section(QLatin1Char(':'), 1);
    QCOMPARE(reasonOf(session), QStringLiteral("the line said \"ERR:%1\"").arg(code));
}

void TestSessionRefused::refusesAProgramThatTheWrenchDoesNotHave()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(session.startSession(simulator, option("program", QStringLiteral("9"))));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(failedStepOf(session), QStringLiteral("select"));
    QCOMPARE(reasonOf(session), QStringLiteral("the wrench has the programs 1 to 2, and 9 was asked for"));
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionRefused::tellsPeopleWhatFailedWhyAndWhatToDo()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(option("fault", faultFrom("silence", 5))), simulator.report());
    QVERIFY(session.startOn(simulator.port(), QStringList{QStringLiteral("session")} +
                                                  option("serial-id", QStringLiteral("2210")) +
                                                  option("limit", QStringLiteral("2"))));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    const QString message = session.messages();
    for (const char* said : {"configure: the wrench could not be configured\n", "the time limit of 2 s",
                             "bring the wrench nearer and try again\n"}) {
        QVERIFY2(message.contains(QLatin1String(said)), qPrintable(message));
    }
    QVERIFY2(session.outputLines().constLast().startsWith(QLatin1String("No result")), session.report());
}

QTEST_GUILESS_MAIN(TestSessionRefused)

#include "tst_session_refused.moc"
