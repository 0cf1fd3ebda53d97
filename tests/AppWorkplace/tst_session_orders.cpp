#include <QMap>
#include <QStringList>
#include <QTest>
#include <QVariant>

#include <functional>

#include <lib_plugins_management/d_abstract_plugin_backend.h>

#include "session_fixture.h"

using Order = std::function<void(Session&)>;

Q_DECLARE_METATYPE(Order)

namespace {

const QString c_setProgram = QStringLiteral("setProgram");
const QString c_setLock = QStringLiteral("setLock");

QVariantMap success(bool isSuccess = true)
{
    return {{QStringLiteral("cmd_success"), isSuccess}};
}

/// A session that listens at program 2, and what it tells of orders from then on.
class Ordering : public SessionFixture
{
public:
    explicit Ordering(const SessionOrder& order = defaultOrder()) : SessionFixture(order)
    {
        const Session* told = session.get();
        QObject::connect(told, &Session::sigSelected, told,
                         [this](int program) { outcomes.append(QStringLiteral("selected %1").arg(program)); });
        QObject::connect(told, &Session::sigLocked, told, [this](bool isLocked) {
            outcomes.append(isLocked ? QStringLiteral("locked") : QStringLiteral("unlocked"));
        });
        QObject::connect(told, &Session::sigLockUnknown, told, [this] { outcomes.append(QStringLiteral("lock ?")); });
        QObject::connect(told, &Session::sigOrderStarted, told, [this] { outcomes.append(QStringLiteral("started")); });
        QObject::connect(told, &Session::sigOrderEnded, told, [this] { outcomes.append(QStringLiteral("ended")); });
        QObject::connect(told, &Session::sigOrderRefused, told, [this](const Problem& why) {
            outcomes.append(QStringLiteral("refused %1").arg(why.step));
            refusal = why;
        });
        QObject::connect(told, &Session::sigChunk, told, [this](int number) { chunks.append(number); });
        start();
        talk.clear();
        outcomes.clear();
        chunks.clear();
    }
    void order(const Order& order)
    {
        order(*session);
        turn();
    }
    void select(int program)
    {
        session->selectProgram(program);
        turn();
    }
    void lock(bool isLocked)
    {
        session->setLock(isLocked);
        turn();
    }
    void hear(const QByteArray& line, int chunk = 0)
    {
        say(line + "\r\n", chunk);
        turn();
    }
    /// Empty: not before somebody else lets it.
    void answerLockWith(const QByteArray& bytes)
    {
        device->setReaction(QStringLiteral("setLock"),
                            {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [this, bytes] {
                                 if (!bytes.isEmpty()) {
                                     say(bytes);
                                 }
                             }});
    }
    void loseLink()
    {
        hear("ERR:3");
        advance(Supervisor::c_settleMs);
    }

    QStringList outcomes;
    Problem refusal;
    QList<int> chunks;
};

void addOrders()
{
    QTest::addColumn<Order>("order");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("step");
    QTest::newRow("select") << Order([](Session& session) { session.selectProgram(3); }) << c_setProgram << "select";
    QTest::newRow("lock") << Order([](Session& session) { session.setLock(true); }) << c_setLock << "lock";
}

/// A maintenance panel's side.
class Panel : public DAbstractPluginBackend
{
    Q_OBJECT

public:
    explicit Panel(const DAbstractPlugin& device) : DAbstractPluginBackend(QStringLiteral("panel"), nullptr)
    {
        setObjectId(device.objectUuid().toString());
    }
};

} // namespace

/// What a session that listens is asked for on the way.
class TestSessionOrders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectsAnotherProgram();
    void goesThroughAnotherProgramThanTheOneBelievedIn();
    void tellsThePresetOfTheSelected();
    void locksAndUnlocks_data();
    void locksAndUnlocks();
    void takesAnAnswerThatIsBeforeItsFrame();
    void asksABusyWrenchAgain_data() { addOrders(); }
    void asksABusyWrenchAgain();
    void givesABusyWrenchUpAtTheLimit_data() { addOrders(); }
    void givesABusyWrenchUpAtTheLimit();
    void refusesAProgramThatIsNotListed();
    void refusesASecondOrder_data() { addOrders(); }
    void refusesASecondOrder();
    void refusesBeforeItListens_data() { addOrders(); }
    void refusesBeforeItListens();
    void refusesWhileItRestores_data() { addOrders(); }
    void refusesWhileItRestores();
    void refusesAfterTheEnd_data() { addOrders(); }
    void refusesAfterTheEnd();
    void tellsWhatTheWrenchSaysAgainstAProgram();
    void tellsWhatTheWrenchSaysAgainstTheLock();
    void failsASelectionAtTheTimeLimit();
    void failsALockThatIsNotAnswered();
    void failsALockThatIsNotWritten();
    void failsWhenTheLinkIsLost_data() { addOrders(); }
    void failsWhenTheLinkIsLost();
    void failsWhenThePortIsGone_data() { addOrders(); }
    void failsWhenThePortIsGone();
    void restoresWhatWasChosenLast();
    void restoresAnUnlockedWrenchUnlocked();
    void tellsWhereAFailedOrderHasLedTo();
    void endsOrderlyInTheMiddle_data() { addOrders(); }
    void endsOrderlyInTheMiddle();
    void takesResultsInTheMiddle_data() { addOrders(); }
    void takesResultsInTheMiddle();
    void tellsNoChunksInTheMiddle_data() { addOrders(); }
    void tellsNoChunksInTheMiddle();
    void takesAnotherOrderAfterARefusal();
    void followsAPanel();
    void tellsAPanelsLockAsTheWrenchAnswersIt_data();
    void tellsAPanelsLockAsTheWrenchAnswersIt();
    void tellsNoChunksWhileAPanelIsAtWork();
    void refusesAnOrderWhileAPanelIsAtWork();
};

void TestSessionOrders::selectsAnotherProgram()
{
    Ordering fixture;
    fixture.select(3);
    QCOMPARE(fixture.talk, QStringList{QStringLiteral("device setProgram progId=3")});
    QCOMPARE(fixture.outcomes,
             (QStringList{QStringLiteral("started"), QStringLiteral("ended"), QStringLiteral("selected 3")}));
}

void TestSessionOrders::goesThroughAnotherProgramThanTheOneBelievedIn()
{
    Ordering fixture;
    fixture.device->setProperty(QStringLiteral("currentProgId"), 3, false);
    fixture.select(3);
    QCOMPARE(fixture.talk,
             (QStringList{QStringLiteral("device setProgram progId=0"), QStringLiteral("device setProgram progId=3")}));
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("selected 3"));
}

void TestSessionOrders::tellsThePresetOfTheSelected()
{
    Ordering fixture;
    QVariantMap preset;
    QObject::connect(fixture.session.get(), &Session::sigSelected, fixture.session.get(),
                     [&](int, const QVariantMap& told) { preset = told; });
    const QVariantMap wanted{{QStringLiteral("unit"), QStringLiteral("ft.lb")}};
    QMap<QString, QVariant> results = success();
    results.insert(QStringLiteral("presetData"), wanted);
    fixture.answer("setProgram", results);
    fixture.select(3);
    QCOMPARE(preset, wanted);
}

void TestSessionOrders::locksAndUnlocks_data()
{
    QTest::addColumn<bool>("isLocked");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("lock") << true << QByteArray("OK:1")
                          << QStringList{QStringLiteral("ended"), QStringLiteral("locked")};
    QTest::newRow("unlock") << false << QByteArray("OK:0")
                            << QStringList{QStringLiteral("ended"), QStringLiteral("unlocked")};
}

void TestSessionOrders::locksAndUnlocks()
{
    QFETCH(bool, isLocked);
    QFETCH(QByteArray, answer);
    QFETCH(QStringList, told);
    Ordering fixture;
    fixture.answer("setLock", success());
    fixture.lock(isLocked);
    QCOMPARE(
        fixture.talk,
        QStringList{
            QStringLiteral("device setLock lock=%1").arg(isLocked ? QStringLiteral("true") : QStringLiteral("false"))});
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("started")});
    fixture.hear(answer);
    QCOMPARE(fixture.outcomes.mid(1), told);
}

void TestSessionOrders::takesAnAnswerThatIsBeforeItsFrame()
{
    Ordering fixture;
    fixture.react(c_setLock, Reaction::Kind::Silence);
    fixture.lock(true);
    fixture.hear("OK:1");
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("started")});
    fixture.device->publish(c_setLock, success());
    fixture.device->finish(c_setLock);
    fixture.turn();
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("locked"));
}

void TestSessionOrders::asksABusyWrenchAgain()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    Ordering fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.talk.clear();
    fixture.hear("ERR:5");
    QCOMPARE(fixture.talk, QStringList{QStringLiteral("device stopped %1").arg(command)});
    fixture.advance(ProgramSelection::c_busyPauseMs - 1);
    QCOMPARE(fixture.talk.size(), 1);
    fixture.advance(1);
    QCOMPARE(fixture.talk.filter(QStringLiteral("device %1 ").arg(command)).size(), 1);
    QVERIFY(fixture.device->isRunning(command));
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("started")});
}

void TestSessionOrders::givesABusyWrenchUpAtTheLimit()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    QFETCH(QString, step);
    SessionOrder limited = SessionFixture::defaultOrder();
    limited.stepLimitMs = ProgramSelection::c_busyPauseMs;
    Ordering fixture(limited);
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.hear("ERR:5");
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("refused %1").arg(step));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the line said \"ERR:5\""));
}

void TestSessionOrders::refusesAProgramThatIsNotListed()
{
    Ordering fixture;
    fixture.select(4);
    QCOMPARE(fixture.talk, QStringList());
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("refused select")});
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the wrench has the programs 1 to 3, and 4 was asked for"));
}

void TestSessionOrders::refusesASecondOrder()
{
    QFETCH(Order, order);
    QFETCH(QString, step);
    Ordering fixture;
    fixture.react(c_setLock, Reaction::Kind::Silence);
    fixture.lock(true);
    fixture.talk.clear();
    fixture.order(order);
    QCOMPARE(fixture.talk, QStringList());
    QCOMPARE(fixture.outcomes, (QStringList{QStringLiteral("started"), QStringLiteral("refused %1").arg(step)}));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("another order is being carried out"));
    QVERIFY(fixture.device->isRunning(c_setLock));
}

void TestSessionOrders::refusesBeforeItListens()
{
    QFETCH(Order, order);
    QFETCH(QString, step);
    SessionFixture fixture;
    QString refused;
    QObject::connect(fixture.session.get(), &Session::sigOrderRefused, fixture.session.get(),
                     [&](const Problem& why) { refused = why.step; });
    fixture.react(QStringLiteral("listProgram"), Reaction::Kind::Silence);
    fixture.start();
    fixture.talk.clear();
    order(*fixture.session);
    fixture.turn();
    QCOMPARE(refused, step);
    QCOMPARE(fixture.talk, QStringList());
}

void TestSessionOrders::refusesWhileItRestores()
{
    QFETCH(Order, order);
    QFETCH(QString, step);
    Ordering fixture;
    fixture.react(QStringLiteral("searchAndConnect"), Reaction::Kind::Silence);
    fixture.loseLink();
    fixture.talk.clear();
    fixture.order(order);
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("refused %1").arg(step)});
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the link to the wrench is being restored"));
    QCOMPARE(fixture.talk, QStringList());
}

void TestSessionOrders::refusesAfterTheEnd()
{
    QFETCH(Order, order);
    QFETCH(QString, step);
    Ordering fixture;
    fixture.session->interrupt();
    fixture.turn();
    fixture.talk.clear();
    fixture.order(order);
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("refused %1").arg(step)});
    QCOMPARE(fixture.talk, QStringList());
}

void TestSessionOrders::tellsWhatTheWrenchSaysAgainstAProgram()
{
    Ordering fixture;
    fixture.react(c_setProgram, Reaction::Kind::Silence);
    fixture.select(3);
    fixture.hear("ERR:4");
    // It may have gone a part of the way.
    QCOMPARE(fixture.outcomes, (QStringList{QStringLiteral("started"), QStringLiteral("ended"),
                                            QStringLiteral("selected 0"), QStringLiteral("refused select")}));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the line said \"ERR:4\""));
    QVERIFY(!fixture.device->isRunning(c_setProgram));
}

void TestSessionOrders::tellsWhatTheWrenchSaysAgainstTheLock()
{
    Ordering fixture;
    fixture.lock(true);
    fixture.hear("ERR:4");
    // It is as it was.
    QCOMPARE(fixture.outcomes,
             (QStringList{QStringLiteral("started"), QStringLiteral("ended"), QStringLiteral("refused lock")}));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the line said \"ERR:4\""));
}

void TestSessionOrders::failsASelectionAtTheTimeLimit()
{
    Ordering fixture;
    fixture.react(c_setProgram, Reaction::Kind::Silence);
    fixture.select(3);
    fixture.advance(textOf(SessionStep::Select).limitMs - 1);
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("started")});
    fixture.advance(1);
    QCOMPARE(fixture.outcomes.mid(1),
             (QStringList{QStringLiteral("ended"), QStringLiteral("selected 0"), QStringLiteral("refused select")}));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the time limit of 30 s ended it, there was no answer"));
}

void TestSessionOrders::failsALockThatIsNotAnswered()
{
    Ordering fixture;
    fixture.lock(true);
    fixture.hear("OK:0"); // that is no answer to it
    fixture.advance(WrenchOrders::c_answerLimitMs - 1);
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("started")});
    fixture.advance(1);
    QCOMPARE(fixture.outcomes.mid(1),
             (QStringList{QStringLiteral("ended"), QStringLiteral("lock ?"), QStringLiteral("refused lock")}));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the wrench has not answered within 2 s"));
}

void TestSessionOrders::failsALockThatIsNotWritten()
{
    Ordering fixture;
    fixture.answer("setLock", success(false));
    fixture.lock(true);
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("refused lock"));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the frame could not be written"));
}

void TestSessionOrders::failsWhenTheLinkIsLost()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    QFETCH(QString, step);
    Ordering fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.hear("ERR:3");
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("refused %1").arg(step));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("the dongle has lost its link to the wrench 2210 (\"ERR:3\")"));
    QVERIFY(!fixture.device->isRunning(command));
}

void TestSessionOrders::failsWhenThePortIsGone()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    QFETCH(QString, step);
    Ordering fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.loseLine();
    fixture.turn();
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("refused %1").arg(step));
    QCOMPARE(fixture.refusal.cause, QStringLiteral("The port went away: plug it in."));
    QVERIFY(!fixture.device->isRunning(command));
}

void TestSessionOrders::restoresWhatWasChosenLast()
{
    Ordering fixture;
    fixture.select(3);
    fixture.lock(true);
    fixture.hear("OK:1");
    fixture.talk.clear();
    fixture.outcomes.clear();
    fixture.loseLink();
    QCOMPARE(fixture.links.constLast().kind, LinkReport::Kind::Restored);
    QCOMPARE(fixture.talk.filter(c_setProgram), QStringList{QStringLiteral("device setProgram progId=3")});
    QCOMPARE(fixture.talk.filter(c_setLock), QStringList()); // its configuration has locked it
    QCOMPARE(fixture.outcomes, QStringList());               // as it was told before
}

void TestSessionOrders::restoresAnUnlockedWrenchUnlocked()
{
    Ordering fixture;
    fixture.lock(true);
    fixture.hear("OK:1");
    fixture.lock(false);
    fixture.hear("OK:0");
    fixture.talk.clear();
    fixture.loseLink();
    QCOMPARE(fixture.talk.filter(c_setLock), QStringList{QStringLiteral("device setLock lock=false")});
}

void TestSessionOrders::tellsWhereAFailedOrderHasLedTo()
{
    Ordering fixture;
    fixture.react(c_setProgram, Reaction::Kind::Silence);
    fixture.select(3);
    fixture.hear("ERR:3");
    fixture.answer("setProgram", success());
    fixture.outcomes.clear();
    fixture.talk.clear();
    fixture.advance(Supervisor::c_settleMs);
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("selected 2")}); // what was there before
    QCOMPARE(fixture.talk.filter(c_setProgram), QStringList{QStringLiteral("device setProgram progId=2")});
}

void TestSessionOrders::endsOrderlyInTheMiddle()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    Ordering fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.talk.clear();
    fixture.session->interrupt();
    fixture.turn();
    QCOMPARE(fixture.talk.filter(QStringLiteral("device stopped %1").arg(command)).size(), 1);
    QCOMPARE(fixture.lastTalk(5), SessionFixture::orderlyEnd());
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.outcomes, QStringList{QStringLiteral("started")}); // and nothing of its outcome
    fixture.hear("OK:1");
    fixture.advance(textOf(SessionStep::Select).limitMs);
    QCOMPARE(fixture.outcomes.size(), 1);
}

void TestSessionOrders::takesResultsInTheMiddle()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    Ordering fixture;
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.tighten(17);
    QCOMPARE(fixture.shown.size(), 1);
}

void TestSessionOrders::tellsNoChunksInTheMiddle()
{
    QFETCH(Order, order);
    QFETCH(QString, command);
    Ordering fixture;
    fixture.hear("RE:F:1", 1);
    fixture.react(command, Reaction::Kind::Silence);
    fixture.order(order);
    fixture.hear("RE:F:2", 2);
    fixture.hear("ERR:4", 3); // ends it
    fixture.hear("RE:F:3", 7);
    QCOMPARE(fixture.chunks, (QList<int>{1, 3, 7}));
    QCOMPARE(fixture.outcomes.count(QStringLiteral("ended")), 1); // so that nobody takes 3 for the one after 1
}

void TestSessionOrders::takesAnotherOrderAfterARefusal()
{
    Ordering fixture;
    fixture.select(4);
    fixture.select(3);
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("selected 3"));
}

void TestSessionOrders::followsAPanel()
{
    Ordering fixture;
    fixture.answerLockWith("OK:1\r\n");
    Panel panel(*fixture.device);
    QVERIFY(panel.queueTreatment(1, c_setLock, {{QStringLiteral("lock"), 1}}));
    QVERIFY(panel.queueTreatment(2, c_setProgram, {{QStringLiteral("progId"), 3}}));
    fixture.turn();
    QCOMPARE(fixture.outcomes.filter(QStringLiteral("locked")), QStringList{QStringLiteral("locked")});
    QCOMPARE(fixture.outcomes.filter(QStringLiteral("selected")), QStringList{QStringLiteral("selected 3")});
    fixture.talk.clear();
    fixture.loseLink();
    QCOMPARE(fixture.talk.filter(c_setProgram), QStringList{QStringLiteral("device setProgram progId=3")});
    QCOMPARE(fixture.talk.filter(c_setLock), QStringList());
}

void TestSessionOrders::tellsAPanelsLockAsTheWrenchAnswersIt_data()
{
    QTest::addColumn<QByteArray>("before"); // the plugin has told the panel that the frame has left
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<int>("locksOfTheRestoring");
    QTest::newRow("at once") << QByteArray("OK:1\r\n") << QString() << "locked" << 0;
    QTest::newRow("later") << QByteArray() << "OK:1"
                           << "locked" << 0;
    QTest::newRow("it refuses") << QByteArray("ERR:5\r\n") << QString() << "ended" << 1;
    QTest::newRow("it refuses later") << QByteArray() << "ERR:5"
                                      << "ended" << 1;
    QTest::newRow("not at all") << QByteArray() << QString() << "lock ?" << 1;
}

void TestSessionOrders::tellsAPanelsLockAsTheWrenchAnswersIt()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, after);
    QFETCH(QString, outcome);
    QFETCH(int, locksOfTheRestoring);
    Ordering fixture;
    fixture.answerLockWith(before);
    Panel panel(*fixture.device);
    QVERIFY(panel.queueTreatment(1, c_setLock, {{QStringLiteral("lock"), 1}}));
    fixture.turn();
    if (before.isEmpty()) {
        QVERIFY(!fixture.outcomes.contains(QStringLiteral("locked")));
        fixture.lock(false);
        QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("refused unlock")); // it is still at work
        if (after.isEmpty()) {
            fixture.advance(WrenchOrders::c_answerLimitMs);
        } else {
            fixture.hear(after.toLatin1());
        }
    }
    QCOMPARE(fixture.outcomes.constLast(), outcome);
    fixture.answerLockWith("OK:0\r\n");
    fixture.talk.clear();
    fixture.loseLink();
    QCOMPARE(fixture.talk.filter(c_setLock).size(), locksOfTheRestoring);
}

void TestSessionOrders::tellsNoChunksWhileAPanelIsAtWork()
{
    Ordering fixture;
    fixture.react(c_setProgram, Reaction::Kind::Silence);
    Panel panel(*fixture.device);
    panel.queueTreatment(1, c_setProgram, {{QStringLiteral("progId"), 3}});
    fixture.hear("OK", 1);
    QCOMPARE(fixture.chunks, QList<int>());
    constexpr int c_treatmentLimitMs = 15000;
    fixture.advance(c_treatmentLimitMs);
    fixture.hear("OK", 5);
    QCOMPARE(fixture.chunks, QList<int>{5});
}

void TestSessionOrders::refusesAnOrderWhileAPanelIsAtWork()
{
    Ordering fixture;
    fixture.react(c_setProgram, Reaction::Kind::Silence);
    Panel panel(*fixture.device);
    panel.queueTreatment(1, c_setProgram, {{QStringLiteral("progId"), 3}});
    fixture.lock(true);
    QCOMPARE(fixture.outcomes.constLast(), QStringLiteral("refused lock"));
    QCOMPARE(fixture.talk.filter(c_setLock), QStringList());
}

QTEST_GUILESS_MAIN(TestSessionOrders)

#include "tst_session_orders.moc"
