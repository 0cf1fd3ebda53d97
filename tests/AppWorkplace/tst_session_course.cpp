#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QUuid>
#include <QVector>

#include "session_fixture.h"

namespace {

SessionOrder orderFor(int results, int durationMs)
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.results = results;
    order.durationMs = durationMs;
    return order;
}

} // namespace

class TestSessionCourse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runsTheCommandsInOrder();
    void leavesTheSelectionAloneWithoutAProgram();
    void tellsEachStepWithItsTime();
    void tellsTheProgramsWithTheirPresets();
    void dialsAnewWhenTheDongleHasHeldALink();
    void saysWhenTheDongleKeepsItsLink();
    void tellsTheSelectedPreset();
    void tellsWhatTheScanHears();
    void getsReadyWithoutListening();
    void endsAfterTheCount();
    void endsAfterTheDuration();
    void listensOnBeforeTheDuration();
    void tellsAResultThatIsOnItsWayAtTheEnd();
    void tellsWhatComesUntilTheDongleHasHungUp();
    void closesWhenTheDongleDoesNotHangUp();
    void beginsALineAnewThatIsCutOffAtTheEnd();
    void showsAResultThatComesWhileTheWrenchIsBeingUnlocked();
    void countsGoodAndNotGood();
    void tellsTheProgramOfTheListening();
    void tellsNoProgramThatWasRefused();
    void tellsHowLongItTook();
    void tellsNothingOfALineThatIsClosedOnPurpose();
    void endsOrderlyWhileListening();
    void endsOnce();
    void endsThoughTheDriverIsSilent();
    void endsWithADriverThatCannotHangUp();
};

void TestSessionCourse::runsTheCommandsInOrder()
{
    SessionFixture fixture;
    fixture.start();
    QCOMPARE(fixture.talk, (QStringList{
                               QStringLiteral("driver listenEventsData subscription=true"),
                               QStringLiteral("device listenEventsData"),
                               QStringLiteral("device searchAndConnect name=scripted serialId=2210"),
                               QStringLiteral("device sendInitConfig"),
                               QStringLiteral("device listProgram"),
                               QStringLiteral("device getPresetData progId=1"),
                               QStringLiteral("device getPresetData progId=2"),
                               QStringLiteral("device getPresetData progId=3"),
                               QStringLiteral("device setProgram progId=2"),
                               QStringLiteral("device setLock lock=false"),
                               QStringLiteral("device setKeepAliveFonction frame=DI:C\r\n responseFrame=OK:"),
                           }));
}

void TestSessionCourse::leavesTheSelectionAloneWithoutAProgram()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.program.reset();
    SessionFixture fixture(order);
    fixture.start();
    QVERIFY(fixture.device->isRunning(QStringLiteral("listenEventsData")));
    QCOMPARE(fixture.talk.filter(QStringLiteral("setProgram")), QStringList());
}

void TestSessionCourse::tellsEachStepWithItsTime()
{
    SessionFixture fixture;
    fixture.device->setReaction(
        QStringLiteral("sendInitConfig"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [&] { fixture.clock.advance(120); }});
    fixture.start();
    QCOMPARE(fixture.events, (QStringList{QStringLiteral("link up open"), QStringLiteral("done open 0"),
                                          QStringLiteral("done connect 0"), QStringLiteral("done configure 120"),
                                          QStringLiteral("done programs 0"), QStringLiteral("done select 0"),
                                          QStringLiteral("done unlock 0")}));
}

void TestSessionCourse::tellsTheProgramsWithTheirPresets()
{
    SessionFixture fixture;
    QVariantList programs;
    QObject::connect(fixture.session.get(), &Session::sigPrograms, fixture.session.get(),
                     [&](const QVariantList& told) { programs = told; });
    fixture.start();
    const QVariantMap preset{{QStringLiteral("unit"), QStringLiteral("N.m")}};
    QVariantList expected;
    for (int id = 1; id <= 3; ++id) {
        expected.append(QVariantMap{{QStringLiteral("progId"), id}, {QStringLiteral("presetData"), preset}});
    }
    QCOMPARE(programs, expected);
}

// To which wrench that link was nobody knows.
void TestSessionCourse::dialsAnewWhenTheDongleHasHeldALink()
{
    SessionFixture fixture;
    const QSignalSpy unverified(fixture.session.get(), &Session::sigUnverified);
    fixture.holdALink(1);
    fixture.start();
    QCOMPARE(fixture.talk.filter(QStringLiteral("searchAndConnect")).size(), 2);
    QCOMPARE(fixture.problems, 0);
    QVERIFY(fixture.device->isRunning(QStringLiteral("listenEventsData")));
    QVERIFY(unverified.isEmpty());
}

void TestSessionCourse::saysWhenTheDongleKeepsItsLink()
{
    SessionFixture fixture;
    const QSignalSpy unverified(fixture.session.get(), &Session::sigUnverified);
    fixture.holdALink(2);
    fixture.start();
    QCOMPARE(fixture.talk.filter(QStringLiteral("searchAndConnect")).size(), 2);
    QCOMPARE(fixture.problems, 0);
    QVERIFY(fixture.events.contains(QStringLiteral("done unlock 0")));
    QCOMPARE(unverified.size(), 1);
}

void TestSessionCourse::tellsTheSelectedPreset()
{
    SessionFixture fixture;
    int selected = 0;
    QVariantMap preset;
    QObject::connect(fixture.session.get(), &Session::sigSelected, fixture.session.get(),
                     [&](int program, const QVariantMap& told) {
                         selected = program;
                         preset = told;
                     });
    fixture.start();
    QCOMPARE(selected, 2);
    QCOMPARE(preset, (QVariantMap{{QStringLiteral("unit"), QStringLiteral("N.m")}}));
}

void TestSessionCourse::tellsWhatTheScanHears()
{
    SessionFixture fixture;
    fixture.react(QStringLiteral("searchAndConnect"), Reaction::Kind::Silence);
    QVector<QVariantList> heard;
    QObject::connect(fixture.session.get(), &Session::sigWrenchesHeard, fixture.session.get(),
                     [&](const QVariantList& wrenches) { heard.append(wrenches); });
    fixture.start();
    fixture.say("RESP AA:01 TW60 2211 -71\r\nRESP AA:02 TW60 2210 -58\r\nRESP AA:02 TW60 2210 -58\r\n");
    fixture.turn();
    QCOMPARE(heard.size(), 2);
    QCOMPARE(heard.last().size(), 2);
    QCOMPARE(heard.last().first().toMap().value(QStringLiteral("sn")).toString(), QStringLiteral("2210"));
}

void TestSessionCourse::getsReadyWithoutListening()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.listens = false;
    SessionFixture fixture(order);
    fixture.start();
    QCOMPARE(fixture.events.last(), QStringLiteral("ready"));
    QVERIFY(!fixture.device->isRunning(QStringLiteral("listenEventsData")));
    fixture.session->interrupt();
    fixture.turn();
    QStringList end = SessionFixture::orderlyEnd();
    end.removeOne(QStringLiteral("device stopped listenEventsData"));
    QCOMPARE(fixture.lastTalk(end.size()), end);
}

void TestSessionCourse::endsAfterTheCount()
{
    SessionFixture fixture(orderFor(2, 0));
    fixture.start();
    fixture.tighten(1);
    QCOMPARE(fixture.ends, 0);
    fixture.tighten(2);
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.summary.end, SessionSummary::End::Count);
}

void TestSessionCourse::endsAfterTheDuration()
{
    SessionFixture fixture(orderFor(0, 3000));
    fixture.start();
    fixture.advance(3000);
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.summary.end, SessionSummary::End::Duration);
}

void TestSessionCourse::listensOnBeforeTheDuration()
{
    SessionFixture fixture(orderFor(0, 3000));
    fixture.start();
    fixture.advance(2999);
    QCOMPARE(fixture.ends, 0);
}

void TestSessionCourse::tellsAResultThatIsOnItsWayAtTheEnd()
{
    SessionFixture fixture(orderFor(1, 0));
    fixture.start();
    // Both in one turn: the second is on its way when the first one ends the session.
    for (int number : {1, 2}) {
        fixture.device->publish(
            QStringLiteral("listenEventsData"),
            {{QStringLiteral("eventData"), QVariantMap{{QStringLiteral("readingNumber"), number}}}});
    }
    fixture.turn();
    QCOMPARE(fixture.events.filter(QStringLiteral("result")),
             (QStringList{QStringLiteral("result 1"), QStringLiteral("result 2")}));
    QCOMPARE(fixture.summary.good + fixture.summary.notGood, 2);
    QCOMPARE(fixture.ends, 1);
}

// A wrench that has told a result does not tell it again.
void TestSessionCourse::tellsWhatComesUntilTheDongleHasHungUp()
{
    SessionFixture fixture;
    fixture.hangUpInSilence();
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    fixture.tighten(1);
    QCOMPARE(fixture.ends, 0);
    // The last one, and the answer behind it, in one turn.
    fixture.device->publish(QStringLiteral("listenEventsData"),
                            {{QStringLiteral("eventData"), QVariantMap{{QStringLiteral("readingNumber"), 2}}}});
    fixture.say("ATH\r\n");
    fixture.turn();
    QCOMPARE(fixture.events.filter(QStringLiteral("result")),
             (QStringList{QStringLiteral("result 1"), QStringLiteral("result 2")}));
    QCOMPARE(fixture.summary.good + fixture.summary.notGood, 2);
    QCOMPARE(fixture.ends, 1);
}

void TestSessionCourse::closesWhenTheDongleDoesNotHangUp()
{
    SessionFixture fixture;
    fixture.hangUpInSilence();
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    fixture.advance(LineEnd::c_answerLimitMs - 1);
    QCOMPARE(fixture.ends, 0);
    fixture.advance(1);
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
}

void TestSessionCourse::beginsALineAnewThatIsCutOffAtTheEnd()
{
    SessionFixture fixture;
    fixture.hangUpInSilence();
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    fixture.talk.clear();
    fixture.loseLine();
    fixture.openLine();
    fixture.turn();
    QCOMPARE(fixture.talk, (QStringList{QStringLiteral("device stopped listenEventsData"),
                                        QStringLiteral("device listenEventsData")}));
}

void TestSessionCourse::showsAResultThatComesWhileTheWrenchIsBeingUnlocked()
{
    SessionFixture fixture(orderFor(1, 0));
    const auto tighten = [&fixture] {
        fixture.device->publish(QStringLiteral("listenEventsData"),
                                {{QStringLiteral("eventData"), QVariantMap{{QStringLiteral("readingNumber"), 1}}}});
    };
    fixture.whenUnlocked(tighten);
    fixture.start();
    QCOMPARE(fixture.events.filter(QStringLiteral("result")), QStringList{QStringLiteral("result 1")});
    QCOMPARE(fixture.summary.end, SessionSummary::End::Count);
}

void TestSessionCourse::countsGoodAndNotGood()
{
    SessionFixture fixture(orderFor(3, 0));
    fixture.start();
    fixture.tighten(1);
    fixture.tighten(2, QStringLiteral("1"));
    fixture.tighten(3);
    QCOMPARE(fixture.summary.good, 2);
    QCOMPARE(fixture.summary.notGood, 1);
}

void TestSessionCourse::tellsTheProgramOfTheListening()
{
    SessionFixture fixture;
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.summary.program, 2);
}

void TestSessionCourse::tellsNoProgramThatWasRefused()
{
    SessionFixture fixture;
    fixture.answer("setProgram", {{QStringLiteral("cmd_success"), false}});
    fixture.device->setProperty(QStringLiteral("currentProgId"), 9, false); // as the plugin records what is asked for
    fixture.start();
    QCOMPARE(fixture.summary.program, 0);
}

void TestSessionCourse::tellsHowLongItTook()
{
    SessionFixture fixture;
    fixture.start();
    fixture.advance(1500);
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.summary.elapsedMs, 1500);
}

void TestSessionCourse::tellsNothingOfALineThatIsClosedOnPurpose()
{
    SessionFixture fixture;
    fixture.react(QStringLiteral("searchAndConnect"), Reaction::Kind::Silence);
    fixture.start();
    fixture.setLine(QString(), QStringLiteral("closed"), false);
    fixture.openLine();
    fixture.advance(500);
    QCOMPARE(fixture.events.filter(QStringLiteral("link")), QStringList{QStringLiteral("link up open")});
    QCOMPARE(fixture.problems, 0);
}

void TestSessionCourse::endsOrderlyWhileListening()
{
    SessionFixture fixture;
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.talkFrom(SessionFixture::orderlyEnd().constFirst()), SessionFixture::orderlyEnd());
}

void TestSessionCourse::endsOnce()
{
    SessionFixture fixture;
    fixture.start();
    fixture.session->interrupt();
    fixture.session->interrupt();
    fixture.session->fail({});
    fixture.turn();
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.problems, 0);
    QCOMPARE(fixture.talk.filter(QStringLiteral("closeConnection")).size(), 1);
}

void TestSessionCourse::endsThoughTheDriverIsSilent()
{
    SessionFixture fixture;
    fixture.driver->setReaction(QStringLiteral("write"), {});
    fixture.driver->setReaction(QStringLiteral("closeConnection"), {});
    fixture.driver->setReaction(QStringLiteral("setKeepAliveFonction"), {});
    fixture.start();
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.ends, 0);
    fixture.advance(2000);
    fixture.advance(2000);
    fixture.advance(2000);
    QCOMPARE(fixture.ends, 1);
}

void TestSessionCourse::endsWithADriverThatCannotHangUp()
{
    SessionFixture fixture;
    QStringList talk;
    const ScriptedPlugin root(QStringLiteral("poor"), {{QStringLiteral("listenEventsData"), {}}}, &talk);
    auto* poor = static_cast<ScriptedPlugin*>(fixture.host.createInstance(root, QUuid::createUuid()));
    Session session({fixture.host, fixture.clock, *fixture.device, *poor}, SessionFixture::defaultOrder());
    int ends = 0;
    QObject::connect(&session, &Session::sigFinished, &session, [&] { ++ends; });
    session.start();
    fixture.turn();
    poor->setProperty(QStringLiteral("connected"), true, false);
    fixture.turn();
    session.interrupt();
    fixture.turn();
    QCOMPARE(ends, 1);
}

QTEST_GUILESS_MAIN(TestSessionCourse)
#include "tst_session_course.moc"
