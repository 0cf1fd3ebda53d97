#include <QMap>
#include <QStringList>
#include <QTest>

#include "session_fixture.h"

namespace {

enum class Presets { With, Without }; // the plugin answers for them itself and never says no

/// Every command that a session waits for, with the step that it belongs to.
void addSteps(Presets presets = Presets::With)
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("step");
    QTest::newRow("connect") << "searchAndConnect"
                             << "connect";
    QTest::newRow("configure") << "sendInitConfig"
                               << "configure";
    QTest::newRow("programs") << "listProgram"
                              << "programs";
    if (presets == Presets::With) {
        QTest::newRow("preset") << "getPresetData"
                                << "programs";
    }
    QTest::newRow("select") << "setProgram"
                            << "select";
    QTest::newRow("unlock") << "setLock"
                            << "unlock";
}

} // namespace

class TestSessionFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void failsWhenTheDeviceSaysNo_data() { addSteps(Presets::Without); }
    void failsWhenTheDeviceSaysNo();
    void blamesThePortForWhatItCannotWrite();
    void failsAtTheTimeLimit_data() { addSteps(); }
    void failsAtTheTimeLimit();
    void waitsUntilTheTimeLimit_data() { addSteps(); }
    void waitsUntilTheTimeLimit();
    void failsWhenThePluginRefuses_data() { addSteps(); }
    void failsWhenThePluginRefuses();
    void failsWhenTheLineIsLost_data() { addSteps(); }
    void failsWhenTheLineIsLost();
    void goesOnWhenTheLineIsBackAtOnce_data() { addSteps(); }
    void goesOnWhenTheLineIsBackAtOnce();
    void endsOrderlyWhenInterrupted_data() { addSteps(); }
    void endsOrderlyWhenInterrupted();
    void failsWhenTheDriverDoesNotKeepTheLinkAlive();
    void failsWhenTheListenerEnds();
    void failsBecauseOfSomethingOutside();
    void tellsTheWordsOfTheWrench();
    void forgetsTheWordsOfAnEarlierStep();
    void takesNoListThatTheWrenchCutShort();
    void takesTheListOfAWrenchThatWasBusyFirst();
    void failsWhenTheWrenchDoesNotAnswerTheUnlocking();
    void failsWhenTheWrenchRefusesTheUnlocking();
    void unlocksByAnAnswerThatIsLate();
    void tellsTheWordsBesideTheTimeLimit();
    void usesTheGivenTimeLimit();
    void tellsWhichWrenchesWereHeardInstead();
    void failsWhenTheLineDoesNotOpen();
    void failsWhenTheDriverSaysNothing();
    void doesNotHangUpALineThatNeverOpened();
};

void TestSessionFailures::failsWhenTheDeviceSaysNo()
{
    QFETCH(QString, command);
    QFETCH(QString, step);
    SessionFixture fixture;
    fixture.device->setReaction(command, {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), false}}, {}});
    fixture.start();
    QCOMPARE(fixture.problems, 1);
    QCOMPARE(fixture.problem.step, step);
    QCOMPARE(fixture.problem.exitStatus(), 1);
    QVERIFY(!fixture.problem.cause.isEmpty());
    QVERIFY(!fixture.problem.mend.isEmpty());
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.summary.end, SessionSummary::End::Failure);
}

// A frame that cannot be written because the adapter was pulled is not the wrench's business.
void TestSessionFailures::blamesThePortForWhatItCannotWrite()
{
    SessionFixture fixture;
    fixture.device->setReaction(
        QStringLiteral("setLock"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), false}}, [&fixture] { fixture.loseLine(); }});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("unlock"));
    QCOMPARE(fixture.problem.kind, Problem::Kind::SetUp);
    QCOMPARE(fixture.problem.cause, QStringLiteral("The port went away: plug it in."));
    QCOMPARE(fixture.problem.mend, QString());
}

void TestSessionFailures::failsAtTheTimeLimit()
{
    QFETCH(QString, command);
    QFETCH(QString, step);
    SessionFixture fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.start();
    fixture.advance(60000);
    QCOMPARE(fixture.problem.step, step);
    QVERIFY2(fixture.problem.cause.contains(QStringLiteral("time limit")), qPrintable(fixture.problem.cause));
    QCOMPARE(fixture.problem.exitStatus(), 1);
    QVERIFY(fixture.talk.contains(QStringLiteral("device stopped %1").arg(command)));
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
    QCOMPARE(fixture.ends, 1);
}

void TestSessionFailures::waitsUntilTheTimeLimit()
{
    QFETCH(QString, command);
    QFETCH(QString, step);
    static const QMap<QString, int> limits = {{QStringLiteral("connect"), 20000},
                                              {QStringLiteral("configure"), 5000},
                                              {QStringLiteral("programs"), 60000},
                                              {QStringLiteral("select"), 30000},
                                              {QStringLiteral("unlock"), 5000}};
    SessionFixture fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.start();
    fixture.advance(limits.value(step) - 1);
    QCOMPARE(fixture.problems, 0);
    fixture.advance(1);
    QCOMPARE(fixture.problems, 1);
}

void TestSessionFailures::failsWhenThePluginRefuses()
{
    QFETCH(QString, command);
    QFETCH(QString, step);
    SessionFixture fixture;
    fixture.react(command, Reaction::Kind::Refusal);
    fixture.start();
    QCOMPARE(fixture.problem.step, step);
    QCOMPARE(fixture.problem.cause, QStringLiteral("the device plugin refused \"%1\"").arg(command));
    QCOMPARE(fixture.problem.exitStatus(), 3);
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
}

void TestSessionFailures::failsWhenTheLineIsLost()
{
    QFETCH(QString, command);
    QFETCH(QString, step);
    SessionFixture fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.start();
    fixture.loseLine();
    fixture.advance(500);
    QCOMPARE(fixture.problem.step, step);
    QCOMPARE(fixture.problem.cause, QStringLiteral("The port went away: plug it in."));
    QCOMPARE(fixture.problem.mend, QString()); // the driver has said it
    QCOMPARE(fixture.problem.exitStatus(), 3);
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
}

void TestSessionFailures::goesOnWhenTheLineIsBackAtOnce()
{
    QFETCH(QString, command);
    SessionFixture fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.start();
    fixture.loseLine();
    fixture.advance(499);
    fixture.openLine();
    fixture.advance(1);
    QCOMPARE(fixture.problems, 0);
    QVERIFY(fixture.device->isRunning(command));
    QCOMPARE(
        fixture.events.filter(QStringLiteral("link")),
        (QStringList{QStringLiteral("link up open"), QStringLiteral("link down lost The port went away: plug it in."),
                     QStringLiteral("link up open")}));
}

void TestSessionFailures::endsOrderlyWhenInterrupted()
{
    QFETCH(QString, command);
    SessionFixture fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.lastTalk(6),
             QStringList{QStringLiteral("device stopped %1").arg(command)} + SessionFixture::orderlyEnd());
    QCOMPARE(fixture.summary.end, SessionSummary::End::Interrupt);
    QCOMPARE(fixture.problems, 0);
}

void TestSessionFailures::failsWhenTheDriverDoesNotKeepTheLinkAlive()
{
    SessionFixture fixture;
    fixture.answer("setKeepAliveFonction", {{QStringLiteral("cmd_success"), false}});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("unlock"));
    QCOMPARE(fixture.problem.exitStatus(), 3);
}

void TestSessionFailures::failsWhenTheListenerEnds()
{
    SessionFixture fixture;
    fixture.answer("listenEventsData", {});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("connect"));
    QStringList end = SessionFixture::orderlyEnd();
    end.removeOne(QStringLiteral("device stopped listenEventsData"));
    QCOMPARE(fixture.lastTalk(end.size()), end);
}

void TestSessionFailures::failsBecauseOfSomethingOutside()
{
    SessionFixture fixture;
    fixture.start();
    fixture.session->fail({Problem::Kind::SetUp, QStringLiteral("open"), QStringLiteral("it has gone"), {}, {}});
    fixture.turn();
    QCOMPARE(fixture.problem.what, QStringLiteral("it has gone"));
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
}

void TestSessionFailures::tellsTheWordsOfTheWrench()
{
    SessionFixture fixture;
    fixture.device->setReaction(
        QStringLiteral("searchAndConnect"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), false}}, [&] { fixture.say("ERR:3\r\n"); }});
    fixture.start();
    QCOMPARE(fixture.problem.cause, QStringLiteral("the line said \"ERR:3\""));
}

void TestSessionFailures::forgetsTheWordsOfAnEarlierStep()
{
    SessionFixture fixture;
    fixture.device->setReaction(
        QStringLiteral("searchAndConnect"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [&] { fixture.say("ERR:2\r\n"); }});
    fixture.answer("sendInitConfig", {{QStringLiteral("cmd_success"), false}});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("configure"));
    QVERIFY2(!fixture.problem.cause.contains(QStringLiteral("ERR:2")), qPrintable(fixture.problem.cause));
}

// The device plugin gives what it has read so far, and calls that a success.
void TestSessionFailures::takesNoListThatTheWrenchCutShort()
{
    SessionFixture fixture;
    const QVariantList programs{QVariantMap{{QStringLiteral("progId"), 1}}};
    fixture.device->setReaction(QStringLiteral("listProgram"),
                                {Reaction::Kind::Answer, {{QStringLiteral("programList"), programs}}, [&] {
                                     fixture.say("OK\r\nOK:UNT0,TRQ12\r\nERR:7\r\n");
                                 }});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("programs"));
    QCOMPARE(fixture.problem.cause, QStringLiteral("the line said \"ERR:7\""));
}

void TestSessionFailures::takesTheListOfAWrenchThatWasBusyFirst()
{
    SessionFixture fixture;
    const QVariantList programs{QVariantMap{{QStringLiteral("progId"), 1}}, QVariantMap{{QStringLiteral("progId"), 2}}};
    fixture.device->setReaction(QStringLiteral("listProgram"),
                                {Reaction::Kind::Answer, {{QStringLiteral("programList"), programs}}, [&] {
                                     fixture.say("ERR:5\r\nOK\r\nOK:UNT0,TRQ12\r\n");
                                 }});
    fixture.start();
    QVERIFY(fixture.events.contains(QStringLiteral("done select 0")));
}

// The device plugin is content when the frame has left.
void TestSessionFailures::failsWhenTheWrenchDoesNotAnswerTheUnlocking()
{
    SessionFixture fixture;
    fixture.answer("setLock", {{QStringLiteral("cmd_success"), true}});
    fixture.start();
    fixture.advance(4999);
    QCOMPARE(fixture.problems, 0);
    fixture.advance(1);
    QCOMPARE(fixture.problem.step, QStringLiteral("unlock"));
    QCOMPARE(fixture.problem.cause, QStringLiteral("the time limit of 5 s ended it, there was no answer"));
}

void TestSessionFailures::failsWhenTheWrenchRefusesTheUnlocking()
{
    SessionFixture fixture;
    fixture.device->setReaction(
        QStringLiteral("setLock"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [&] { fixture.say("ERR:7\r\n"); }});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("unlock"));
    QCOMPARE(fixture.problem.cause, QStringLiteral("the line said \"ERR:7\""));
}

void TestSessionFailures::unlocksByAnAnswerThatIsLate()
{
    SessionFixture fixture;
    fixture.answer("setLock", {{QStringLiteral("cmd_success"), true}});
    fixture.start();
    fixture.advance(4000);
    fixture.say("OK:0\r\n");
    fixture.turn();
    QVERIFY(fixture.events.contains(QStringLiteral("done unlock 4000")));
    fixture.advance(1000);
    QCOMPARE(fixture.problems, 0);
}

void TestSessionFailures::tellsTheWordsBesideTheTimeLimit()
{
    SessionFixture fixture;
    fixture.react(QStringLiteral("sendInitConfig"), Reaction::Kind::Silence);
    fixture.start();
    fixture.say("ERR:5\r\n");
    fixture.turn();
    fixture.advance(5000);
    QCOMPARE(fixture.problem.cause, QStringLiteral("the time limit of 5 s ended it, the line said \"ERR:5\""));
}

void TestSessionFailures::usesTheGivenTimeLimit()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.stepLimitMs = 250;
    SessionFixture fixture(order);
    fixture.react(QStringLiteral("listProgram"), Reaction::Kind::Silence);
    fixture.start();
    fixture.advance(250);
    QCOMPARE(fixture.problem.cause, QStringLiteral("the time limit of 0.25 s ended it, there was no answer"));
}

void TestSessionFailures::tellsWhichWrenchesWereHeardInstead()
{
    SessionFixture fixture;
    fixture.device->setReaction(QStringLiteral("searchAndConnect"),
                                {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), false}}, [&] {
                                     fixture.say("RESP AA:01 TW60 2211 -71\r\n");
                                 }});
    fixture.start();
    QCOMPARE(fixture.problem.cause, QStringLiteral("the wrench 2210 was not heard, only 2211 (-71 dBm)"));
}

void TestSessionFailures::failsWhenTheLineDoesNotOpen()
{
    SessionFixture fixture;
    fixture.driver->setReaction(QStringLiteral("listenEventsData"),
                                {Reaction::Kind::Silence, {}, [&] { fixture.loseLine(); }});
    fixture.start();
    QCOMPARE(fixture.problem.step, QStringLiteral("open"));
    QCOMPARE(fixture.problem.exitStatus(), 3);
    QCOMPARE(fixture.problem.mend, QString()); // the driver has said it
    QCOMPARE(fixture.ends, 1);
}

void TestSessionFailures::failsWhenTheDriverSaysNothing()
{
    SessionFixture fixture;
    fixture.driver->setReaction(QStringLiteral("listenEventsData"), {});
    fixture.start();
    fixture.advance(4999);
    QCOMPARE(fixture.problems, 0);
    fixture.advance(1);
    QCOMPARE(fixture.problem.step, QStringLiteral("open"));
    QCOMPARE(fixture.problem.exitStatus(), 3);
}

void TestSessionFailures::doesNotHangUpALineThatNeverOpened()
{
    SessionFixture fixture;
    fixture.driver->setReaction(QStringLiteral("listenEventsData"),
                                {Reaction::Kind::Silence, {}, [&] { fixture.loseLine(); }});
    fixture.start();
    QCOMPARE(fixture.talk.filter(QStringLiteral("driver write")), QStringList());
    QCOMPARE(fixture.lastTalk(2), (QStringList{QStringLiteral("driver closeConnection"),
                                               QStringLiteral("driver stopped listenEventsData")}));
}

QTEST_GUILESS_MAIN(TestSessionFailures)
#include "tst_session_failures.moc"
