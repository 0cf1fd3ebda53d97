#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>
#include <QVector>

#include <functional>

#include "services/growing_pause.h"
#include "session_fixture.h"

using Cause = LinkReport::Cause;
using Kind = LinkReport::Kind;
using Trouble = std::function<void(SessionFixture&)>;

Q_DECLARE_METATYPE(LinkReport::Cause)
Q_DECLARE_METATYPE(Trouble)

namespace {

const QString c_portGone = QStringLiteral("The port went away: plug it in.");

void say(SessionFixture& fixture, const QByteArray& line)
{
    fixture.say(line + "\r\n");
    SessionFixture::turn();
}

/// Every way to lose a link, with its cause and what is said of it.
void addTroubles()
{
    QTest::addColumn<Trouble>("happen");
    QTest::addColumn<Cause>("cause");
    QTest::addColumn<QString>("said");
    QTest::addColumn<int>("exitStatus");
    QTest::newRow("port gone") << Trouble([](SessionFixture& fixture) { fixture.loseLine(); }) << Cause::Port
                               << c_portGone << 3;
    QTest::newRow("silence") << Trouble([](SessionFixture& fixture) { fixture.silenceLine(); }) << Cause::Silence
                             << "The device has left the keep-alive unanswered." << 1;
    QTest::newRow("out of range") << Trouble([](SessionFixture& fixture) { say(fixture, "ERR:1"); }) << Cause::Range
                                  << "the dongle cannot reach the wrench 2210 (\"ERR:1\"): bring it near and check "
                                     "that it is switched on"
                                  << 1;
    QTest::newRow("link lost") << Trouble([](SessionFixture& fixture) { say(fixture, "ERR:3"); }) << Cause::Link
                               << "the dongle has lost its link to the wrench 2210 (\"ERR:3\")" << 1;
}

/// The commands of a restoring, in their order.
void addCommands()
{
    QTest::addColumn<QString>("command");
    for (const char* command : {"searchAndConnect", "sendInitConfig", "setProgram", "setLock"}) {
        QTest::newRow(command) << QString(QLatin1String(command));
    }
}

QVector<Kind> kindsOf(const SessionFixture& fixture)
{
    QVector<Kind> kinds;
    for (const LinkReport& report : fixture.links) {
        kinds.append(report.kind);
    }
    return kinds;
}

/// A session that listens and restores its link, with whatever is silent in it from now on.
class Listening : public SessionFixture
{
public:
    explicit Listening(const SessionOrder& order = defaultOrder(), const QString& port = {})
        : SessionFixture(order, port)
    {
        start();
        links.clear();
        talk.clear();
    }
    void settle() { advance(Supervisor::c_settleMs); }
    /// Loses its link, and comes to that command, which is not answered.
    void restoreUpTo(const QString& command)
    {
        react(command, Reaction::Kind::Silence);
        say("ERR:3\r\n");
        turn();
        settle();
    }
    const LinkReport& lastLink() const { return links.constLast(); }
    bool isRestored() const { return !links.isEmpty() && lastLink().kind == Kind::Restored; }
    int attempts() const { return talk.filter(QStringLiteral("device searchAndConnect")).size(); }
};

} // namespace

/// What a session does when it has listened and its link to the wrench is lost.
class TestSessionReconnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsEachLossAtOnce_data() { addTroubles(); }
    void tellsEachLossAtOnce();
    void takesNoNoticeOfOtherWords_data();
    void takesNoNoticeOfOtherWords();
    void restoresAfterEachLoss_data() { addTroubles(); }
    void restoresAfterEachLoss();
    void restoresInOrder();
    void goesThroughAnotherProgramThanTheOneBelievedIn();
    void leavesTheSelectionAloneWithoutAProgram();
    void keepsItsListeners();
    void listensAnewWhenThePortIsBack();
    void waitsUntilTheDustHasSettled();
    void waitsForThePauseBeforeTheNextAttempt();
    void tellsWhyAnAttemptHasFailed();
    void beginsWithAShortPauseAfterEachLoss();
    void tellsHowLongTheGapWas();
    void passesResultsOnWhileItRestores_data() { addCommands(); }
    void passesResultsOnWhileItRestores();
    void endsByTheCountWhileItRestores();
    void endsByTheDurationWhileItRestores();
    void beginsAgainWhenThePortGoesWhileItRestores_data() { addCommands(); }
    void beginsAgainWhenThePortGoesWhileItRestores();
    void sendsNothingWhileThePortIsAway();
    void opensThePortWhenItsFileIsBack();
    void tellsWhyAPortThatIsBackIsNotOpen();
    void opensThePortLaterWhenItWasNotReady();
    void asksABusyWrenchAgain();
    void givesABusyWrenchUpAtTheLimit();
    void failsAnAttemptWhoseSelectionIsRefused();
    void givesUpAtTheLimit_data() { addTroubles(); }
    void givesUpAtTheLimit();
    void givesUpAfterAnHourUnlessToldOtherwise();
    void countsTheLimitFromEachLoss();
    void endsAtOnceWithoutReconnection_data() { addTroubles(); }
    void endsAtOnceWithoutReconnection();
    void endsOrderlyWhenInterrupted_data() { addCommands(); }
    void endsOrderlyWhenInterrupted();
    void endsOrderlyWhenInterruptedInAPause();
    void endsOrderlyWhenInterruptedWhileThePortIsAway();
    void tellsOfNamesakes();
    void tellsOfNamesakesOnce();
    void tellsOfNamesakesWithoutKnowingWhichWasTaken();
    void tellsOfANamesakeThatAnswersLater();
    void pausesGrowAndAreCapped();
    void pausesAreThoseOfTheSeed();

private:
    static void failSearches(SessionFixture& fixture);
};

void TestSessionReconnection::failSearches(SessionFixture& fixture)
{
    fixture.answer("searchAndConnect", {{QStringLiteral("cmd_success"), false}});
}

void TestSessionReconnection::tellsEachLossAtOnce()
{
    QFETCH(Trouble, happen);
    QFETCH(Cause, cause);
    QFETCH(QString, said);
    Listening fixture;
    happen(fixture);
    QCOMPARE(kindsOf(fixture), QVector<Kind>{Kind::Lost});
    QCOMPARE(fixture.lastLink().cause, cause);
    QCOMPARE(fixture.lastLink().message, said);
}

void TestSessionReconnection::takesNoNoticeOfOtherWords_data()
{
    QTest::addColumn<QByteArray>("line");
    for (const char* line : {"ERR:2", "ERR:4", "ERR:5", "ERR", "OK:1", "ERR:31", "RE:F:1,ERR:3"}) {
        QTest::newRow(line) << QByteArray(line);
    }
}

void TestSessionReconnection::takesNoNoticeOfOtherWords()
{
    QFETCH(QByteArray, line);
    Listening fixture;
    say(fixture, line);
    fixture.settle();
    QVERIFY(fixture.links.isEmpty());
    QCOMPARE(fixture.talk, QStringList());
}

void TestSessionReconnection::restoresAfterEachLoss()
{
    QFETCH(Trouble, happen);
    QFETCH(Cause, cause);
    Listening fixture;
    happen(fixture);
    fixture.openLine();
    fixture.settle();
    QCOMPARE(kindsOf(fixture), (QVector<Kind>{Kind::Lost, Kind::Restoring, Kind::Restored}));
    QCOMPARE(fixture.lastLink().cause, cause);
    QCOMPARE(fixture.problems, 0);
}

void TestSessionReconnection::restoresInOrder()
{
    Listening fixture;
    say(fixture, "ERR:3");
    fixture.settle();
    QCOMPARE(fixture.talk, (QStringList{
                               QStringLiteral("device setKeepAliveFonction frame= responseFrame="),
                               QStringLiteral("device searchAndConnect name=scripted serialId=2210"),
                               QStringLiteral("device sendInitConfig"),
                               QStringLiteral("device setProgram progId=2"),
                               QStringLiteral("device setLock lock=false"),
                               QStringLiteral("device setKeepAliveFonction frame=DI:C\r\n responseFrame=OK:"),
                           }));
}

void TestSessionReconnection::goesThroughAnotherProgramThanTheOneBelievedIn()
{
    Listening fixture;
    fixture.device->setProperty(QStringLiteral("currentProgId"), 2, false);
    say(fixture, "ERR:3");
    fixture.settle();
    QCOMPARE(fixture.talk.filter(QStringLiteral("setProgram")),
             (QStringList{QStringLiteral("device setProgram progId=0"), QStringLiteral("device setProgram progId=2")}));
}

void TestSessionReconnection::leavesTheSelectionAloneWithoutAProgram()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.program.reset();
    Listening fixture(order);
    say(fixture, "ERR:3");
    fixture.settle();
    QVERIFY(fixture.isRestored());
    QCOMPARE(fixture.talk.filter(QStringLiteral("rogram")), QStringList());
}

void TestSessionReconnection::keepsItsListeners()
{
    Listening fixture;
    say(fixture, "ERR:3");
    fixture.settle();
    QVERIFY(fixture.isRestored());
    QCOMPARE(fixture.talk.filter(QStringLiteral("listenEventsData")), QStringList());
    QVERIFY(fixture.device->isRunning(QStringLiteral("listenEventsData")));
    QVERIFY(fixture.driver->isRunning(QStringLiteral("listenEventsData")));
}

// What had arrived of a line before the port went is not the beginning of what comes when it is back.
void TestSessionReconnection::listensAnewWhenThePortIsBack()
{
    Listening fixture;
    fixture.loseLine();
    SessionFixture::turn();
    fixture.talk.clear();
    fixture.openLine();
    SessionFixture::turn();
    QCOMPARE(fixture.talk.mid(0, 2), (QStringList{QStringLiteral("device stopped listenEventsData"),
                                                  QStringLiteral("device listenEventsData")}));
    QVERIFY(fixture.device->isRunning(QStringLiteral("listenEventsData")));
    fixture.settle();
    fixture.tighten(7);
    QVERIFY(fixture.events.contains(QStringLiteral("result 7")));
}

void TestSessionReconnection::waitsUntilTheDustHasSettled()
{
    Listening fixture;
    say(fixture, "ERR:3");
    fixture.advance(Supervisor::c_settleMs - 1);
    QCOMPARE(fixture.attempts(), 0);
    fixture.advance(1);
    QCOMPARE(fixture.attempts(), 1);
}

void TestSessionReconnection::waitsForThePauseBeforeTheNextAttempt()
{
    Listening fixture;
    failSearches(fixture);
    say(fixture, "ERR:3");
    fixture.settle();
    for (int attempt = 2; attempt <= 8; ++attempt) {
        QCOMPARE(fixture.lastLink().kind, Kind::Waiting);
        QCOMPARE(fixture.lastLink().attempt, attempt);
        fixture.advance(fixture.lastLink().pauseMs - 1);
        QCOMPARE(fixture.attempts(), attempt - 1);
        fixture.advance(1);
        QCOMPARE(fixture.attempts(), attempt);
    }
}

void TestSessionReconnection::tellsWhyAnAttemptHasFailed()
{
    Listening fixture;
    failSearches(fixture);
    say(fixture, "ERR:1");
    fixture.settle();
    QCOMPARE(fixture.lastLink().message, QStringLiteral("the wrench could not be connected: no wrench was heard"));
}

void TestSessionReconnection::beginsWithAShortPauseAfterEachLoss()
{
    Listening fixture;
    for (int loss = 0; loss < 2; ++loss) {
        failSearches(fixture);
        say(fixture, "ERR:3");
        fixture.settle();
        QVERIFY(fixture.lastLink().pauseMs <= Supervisor::c_firstPauseMs);
        fixture.advance(fixture.lastLink().pauseMs);
        fixture.answer("searchAndConnect", {{QStringLiteral("cmd_success"), true}});
        fixture.advance(fixture.lastLink().pauseMs);
        QVERIFY(fixture.isRestored());
        QCOMPARE(fixture.lastLink().attempt, 3);
    }
}

void TestSessionReconnection::tellsHowLongTheGapWas()
{
    Listening fixture;
    fixture.loseLine();
    fixture.advance(4321);
    fixture.openLine();
    fixture.advance(0);
    QVERIFY(fixture.isRestored());
    QCOMPARE(fixture.lastLink().gapMs, 4321);
}

void TestSessionReconnection::passesResultsOnWhileItRestores()
{
    QFETCH(QString, command);
    Listening fixture;
    fixture.restoreUpTo(command);
    QVERIFY(fixture.device->isRunning(command));
    fixture.tighten(1);
    fixture.tighten(2);
    QCOMPARE(fixture.events.filter(QStringLiteral("result")),
             (QStringList{QStringLiteral("result 1"), QStringLiteral("result 2")}));
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.summary.good, 2);
}

void TestSessionReconnection::endsByTheCountWhileItRestores()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.results = 1;
    Listening fixture(order);
    fixture.restoreUpTo(QStringLiteral("sendInitConfig"));
    fixture.tighten(1);
    QCOMPARE(fixture.summary.end, SessionSummary::End::Count);
    QCOMPARE(fixture.talkFrom(QStringLiteral("device stopped sendInitConfig")),
             QStringList{QStringLiteral("device stopped sendInitConfig")} + SessionFixture::orderlyEnd());
}

void TestSessionReconnection::endsByTheDurationWhileItRestores()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.durationMs = 2000;
    Listening fixture(order);
    fixture.restoreUpTo(QStringLiteral("searchAndConnect"));
    fixture.advance(2000 - Supervisor::c_settleMs);
    QCOMPARE(fixture.summary.end, SessionSummary::End::Duration);
    QCOMPARE(fixture.ends, 1);
}

void TestSessionReconnection::beginsAgainWhenThePortGoesWhileItRestores()
{
    QFETCH(QString, command);
    Listening fixture;
    const Reaction answer = fixture.device->reaction(command);
    fixture.restoreUpTo(command);
    fixture.loseLine();
    fixture.turn();
    QCOMPARE(fixture.lastLink().kind, Kind::Lost);
    QCOMPARE(fixture.lastLink().cause, Cause::Port);
    QVERIFY(!fixture.device->isRunning(command));

    fixture.device->setReaction(command, answer);
    fixture.talk.clear();
    fixture.openLine();
    fixture.advance(0);
    QVERIFY(fixture.isRestored());
    constexpr int c_listeningAnew = 2; // its end and its beginning
    QCOMPARE(fixture.talk.size(), 6 + c_listeningAnew);
}

void TestSessionReconnection::sendsNothingWhileThePortIsAway()
{
    Listening fixture;
    fixture.loseLine();
    fixture.advance(60000);
    QCOMPARE(fixture.talk, QStringList());
    QCOMPARE(kindsOf(fixture), QVector<Kind>{Kind::Lost});
}

void TestSessionReconnection::opensThePortWhenItsFileIsBack()
{
    const QTemporaryDir folder;
    QFile port(folder.filePath(QStringLiteral("port")));
    Listening fixture(SessionFixture::defaultOrder(), port.fileName());
    fixture.loseLine();
    fixture.advance(100 * Supervisor::c_lookMs);
    QVERIFY(port.open(QIODevice::WriteOnly));
    fixture.advance(Supervisor::c_lookMs - 1);
    QCOMPARE(fixture.talk, QStringList());
    fixture.advance(1);
    QCOMPARE(fixture.talk.value(0), QStringLiteral("driver listenEventsData subscription=true"));
    fixture.advance(0);
    QVERIFY(fixture.isRestored());
    // The device's listener begins anew between them.
    QCOMPARE(fixture.talk.filter(QStringLiteral("driver")).value(1), QStringLiteral("driver stopped listenEventsData"));
}

void TestSessionReconnection::tellsWhyAPortThatIsBackIsNotOpen()
{
    const QTemporaryDir folder;
    QFile port(folder.filePath(QStringLiteral("port")));
    Listening fixture(SessionFixture::defaultOrder(), port.fileName());
    const QString error = QStringLiteral("The port is in use by another program.");
    fixture.loseLine();
    fixture.advance(Supervisor::c_lookMs);
    QVERIFY(port.open(QIODevice::WriteOnly));
    fixture.driver->setReaction(
        QStringLiteral("listenEventsData"),
        {Reaction::Kind::Silence, {}, [&] { fixture.setLine(error, QStringLiteral("lost"), false); }});
    fixture.advance(Supervisor::c_lookMs);
    QCOMPARE(fixture.lastLink().kind, Kind::Lost);
    QCOMPARE(fixture.lastLink().message, error);
    fixture.settle();
    QCOMPARE(fixture.lastLink().kind, Kind::Waiting);
    QCOMPARE(fixture.lastLink().message, error);
}

void TestSessionReconnection::opensThePortLaterWhenItWasNotReady()
{
    const QTemporaryDir folder;
    QFile port(folder.filePath(QStringLiteral("port")));
    Listening fixture(SessionFixture::defaultOrder(), port.fileName());
    const Reaction opening = fixture.driver->reaction(QStringLiteral("listenEventsData"));
    fixture.driver->setReaction(QStringLiteral("listenEventsData"), {});
    fixture.loseLine();
    fixture.advance(Supervisor::c_lookMs);
    QVERIFY(port.open(QIODevice::WriteOnly));
    fixture.advance(Supervisor::c_lookMs + Supervisor::c_settleMs);
    QCOMPARE(fixture.lastLink().kind, Kind::Waiting);
    fixture.driver->setReaction(QStringLiteral("listenEventsData"), opening);
    constexpr int c_stepMs = 50;
    const int limitMs = fixture.lastLink().pauseMs + Supervisor::c_lookMs; // the next look after the pause
    for (int ms = 0; ms <= limitMs && !fixture.isRestored(); ms += c_stepMs) {
        fixture.advance(c_stepMs);
    }
    QVERIFY(fixture.isRestored());
    QCOMPARE(fixture.lastLink().attempt, 2);
}

void TestSessionReconnection::asksABusyWrenchAgain()
{
    Listening fixture;
    fixture.restoreUpTo(QStringLiteral("setProgram"));
    fixture.device->setProperty(QStringLiteral("currentProgId"), 2, false); // as the plugin does when it is asked
    fixture.talk.clear();
    say(fixture, "ERR:5");
    QCOMPARE(fixture.talk, QStringList{QStringLiteral("device stopped setProgram")});
    fixture.answer("setProgram", {{QStringLiteral("cmd_success"), true}});
    fixture.advance(ProgramSelection::c_busyPauseMs - 1);
    QCOMPARE(fixture.talk.size(), 1);
    fixture.advance(1);
    QCOMPARE(fixture.talk.mid(1, 2),
             (QStringList{QStringLiteral("device setProgram progId=0"), QStringLiteral("device setProgram progId=2")}));
    QVERIFY(fixture.isRestored());
}

void TestSessionReconnection::givesABusyWrenchUpAtTheLimit()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.stepLimitMs = ProgramSelection::c_busyPauseMs;
    Listening fixture(order);
    fixture.restoreUpTo(QStringLiteral("setProgram"));
    say(fixture, "ERR:5");
    QCOMPARE(fixture.lastLink().kind, Kind::Waiting);
    QCOMPARE(fixture.lastLink().message, QStringLiteral("the program could not be selected: the line said \"ERR:5\""));
}

void TestSessionReconnection::failsAnAttemptWhoseSelectionIsRefused()
{
    Listening fixture;
    fixture.restoreUpTo(QStringLiteral("setProgram"));
    say(fixture, "ERR:3");
    QCOMPARE(fixture.lastLink().kind, Kind::Waiting);
    QVERIFY(!fixture.device->isRunning(QStringLiteral("setProgram")));
}

void TestSessionReconnection::givesUpAtTheLimit()
{
    QFETCH(Trouble, happen);
    QFETCH(int, exitStatus);
    SessionOrder order = SessionFixture::defaultOrder();
    order.reconnectLimitMs = 5000;
    Listening fixture(order);
    fixture.react(QStringLiteral("searchAndConnect"), Reaction::Kind::Silence);
    happen(fixture);
    fixture.advance(4999);
    QCOMPARE(fixture.problems, 0);
    fixture.advance(1);
    QCOMPARE(fixture.problems, 1);
    QCOMPARE(fixture.problem.exitStatus(), exitStatus);
    QCOMPARE(fixture.problem.what, QStringLiteral("the link to the wrench 2210 was not restored within 5 s"));
    QVERIFY(!fixture.problem.cause.isEmpty());
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
    QCOMPARE(fixture.summary.end, SessionSummary::End::Failure);
}

void TestSessionReconnection::givesUpAfterAnHourUnlessToldOtherwise()
{
    Listening fixture;
    fixture.loseLine();
    fixture.advance(3600 * 1000 - 1);
    QCOMPARE(fixture.problems, 0);
    fixture.advance(1);
    QCOMPARE(fixture.problems, 1);
}

void TestSessionReconnection::countsTheLimitFromEachLoss()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.reconnectLimitMs = 5000;
    Listening fixture(order);
    fixture.loseLine();
    fixture.advance(4000);
    fixture.openLine();
    fixture.advance(0);
    QVERIFY(fixture.isRestored());
    fixture.loseLine();
    fixture.advance(4999);
    QCOMPARE(fixture.problems, 0);
}

void TestSessionReconnection::endsAtOnceWithoutReconnection()
{
    QFETCH(Trouble, happen);
    QFETCH(QString, said);
    QFETCH(int, exitStatus);
    SessionOrder order = SessionFixture::defaultOrder();
    order.reconnects = false;
    Listening fixture(order);
    happen(fixture);
    fixture.turn();
    QCOMPARE(kindsOf(fixture), QVector<Kind>{Kind::Lost});
    QCOMPARE(fixture.problem.what, QStringLiteral("the link to the wrench 2210 is lost"));
    QCOMPARE(fixture.problem.cause, said);
    QCOMPARE(fixture.problem.exitStatus(), exitStatus);
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.attempts(), 0);
}

void TestSessionReconnection::endsOrderlyWhenInterrupted()
{
    QFETCH(QString, command);
    Listening fixture;
    fixture.restoreUpTo(command);
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.lastTalk(6),
             QStringList{QStringLiteral("device stopped %1").arg(command)} + SessionFixture::orderlyEnd());
    QCOMPARE(fixture.summary.end, SessionSummary::End::Interrupt);
    QCOMPARE(fixture.ends, 1);
}

void TestSessionReconnection::endsOrderlyWhenInterruptedInAPause()
{
    Listening fixture;
    failSearches(fixture);
    say(fixture, "ERR:1");
    fixture.settle();
    QCOMPARE(fixture.lastLink().kind, Kind::Waiting);
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
    const QStringList talk = fixture.talk;
    fixture.advance(60000);
    QCOMPARE(fixture.talk, talk);
}

void TestSessionReconnection::endsOrderlyWhenInterruptedWhileThePortIsAway()
{
    Listening fixture;
    fixture.loseLine();
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.ends, 1);
    const QStringList talk = fixture.talk;
    fixture.openLine();
    fixture.advance(60000);
    QCOMPARE(fixture.talk, talk);
}

namespace {

/// Hears what a session tells of namesakes: "AA:01 AA:02, AA:02 taken".
class Namesakes
{
public:
    explicit Namesakes(const SessionFixture& fixture)
    {
        QObject::connect(fixture.session.get(), &Session::sigNamesakes, fixture.session.get(),
                         [this](const QVariantList& wrenches, const QString& taken) {
                             QStringList addresses;
                             for (const QVariant& wrench : wrenches) {
                                 addresses.append(wrench.toMap().value(QStringLiteral("mac")).toString());
                             }
                             told.append(QStringLiteral("%1, %2 taken").arg(addresses.join(QLatin1Char(' ')), taken));
                         });
    }
    QStringList told;
};

void searchHears(SessionFixture& fixture, const QByteArray& heard)
{
    fixture.device->setReaction(
        QStringLiteral("searchAndConnect"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [&fixture, heard] { fixture.say(heard); }});
}

const QByteArray c_bothAnswer =
    QByteArrayLiteral("RESP AA:01 TW60 2210 -71\r\nRESP AA:02 TW60 2210 -58\r\nRESP AA:03 TW60 2211 -40\r\n");

} // namespace

void TestSessionReconnection::tellsOfNamesakes()
{
    SessionFixture fixture;
    const Namesakes namesakes(fixture);
    searchHears(fixture, c_bothAnswer + "ATD AA01\r\n");
    fixture.start();
    QCOMPARE(namesakes.told, QStringList{QStringLiteral("AA:02 AA:01, AA:01 taken")});
}

void TestSessionReconnection::tellsOfNamesakesOnce()
{
    SessionFixture fixture;
    const Namesakes namesakes(fixture);
    searchHears(fixture, c_bothAnswer + "ATD AA01\r\n");
    fixture.start();
    say(fixture, "ERR:3");
    fixture.advance(Supervisor::c_settleMs);
    QCOMPARE(namesakes.told.size(), 1);
    searchHears(fixture, c_bothAnswer + "ATD AA02\r\n");
    say(fixture, "ERR:3");
    fixture.advance(Supervisor::c_settleMs);
    QCOMPARE(namesakes.told.value(1), QStringLiteral("AA:02 AA:01, AA:02 taken"));
}

void TestSessionReconnection::tellsOfNamesakesWithoutKnowingWhichWasTaken()
{
    SessionFixture fixture;
    const Namesakes namesakes(fixture);
    searchHears(fixture, c_bothAnswer);
    fixture.start();
    QCOMPARE(namesakes.told, QStringList{QStringLiteral("AA:02 AA:01,  taken")});
}

void TestSessionReconnection::tellsOfANamesakeThatAnswersLater()
{
    SessionFixture fixture;
    const Namesakes namesakes(fixture);
    searchHears(fixture, "RESP AA:01 TW60 2210 -71\r\nATD AA01\r\n");
    fixture.start();
    QCOMPARE(namesakes.told, QStringList());
    searchHears(fixture, "RESP AA:02 TW60 2210 -58\r\nATD AA02\r\n");
    say(fixture, "ERR:3");
    fixture.advance(Supervisor::c_settleMs);
    QCOMPARE(namesakes.told, QStringList{QStringLiteral("AA:02 AA:01, AA:02 taken")});
}

void TestSessionReconnection::pausesGrowAndAreCapped()
{
    GrowingPause pause(250, 10000, 7);
    for (int round = 0; round < 2; ++round) {
        for (const int most : {250, 500, 1000, 2000, 4000, 8000, 10000, 10000}) {
            const int ms = pause.next();
            QVERIFY2(ms >= most / 2 && ms <= most, qPrintable(QStringLiteral("%1 of %2").arg(ms).arg(most)));
        }
        pause.reset();
    }
}

void TestSessionReconnection::pausesAreThoseOfTheSeed()
{
    const auto drawn = [](quint32 seed) {
        GrowingPause pause(250, 10000, seed);
        QVector<int> pauses;
        for (int i = 0; i < 10; ++i) {
            pauses.append(pause.next());
        }
        return pauses;
    };
    QCOMPARE(drawn(7), drawn(7));
    QVERIFY(drawn(7) != drawn(8));
}

QTEST_GUILESS_MAIN(TestSessionReconnection)
#include "tst_session_reconnection.moc"
