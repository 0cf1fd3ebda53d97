#include <QRegularExpression>
#include <QTest>

#include <thread>

#include <support/log_capture.h>

#include "workbench.h"

/// Where an instruction goes, and when it is refused: addInstruction() returns 0 then and the log says why.
class TstTargets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void driverIsTheLinkedInstance();
    void myselfIsTheOwnInstance();
    void anythingElseIsTheNameOfAnInstance();
    void nameIsTheOneInTheConfiguration();
    void commandMayRunItselfAgain();
    void chainToMyselfGoesOneTurnAtATime();
    void unknownTargetIsRefused();
    void whatIsRefusedAgainAndAgainIsLoggedOnceWithItsDevice();
    void driverThatIsNotLinkedIsRefused();
    void unknownInstructionIsRefused();
    void stopCommandIsAnInstructionToo();
    void limitMustBeAboveZero_data();
    void limitMustBeAboveZero();
    void targetThatHasGoneIsRefused();
    void targetThatGoesBeforeItRunsAnswersFailure();
    void targetThatGoesWhileItRunsAnswersFailure();
    void openSubscriptionToATargetThatGoesFallsSilent();
    void instructionAfterTheEndIsRefused();
    void instructionWithoutAnOrderIsRefused();
    void instructionFromAnotherThreadIsRefused();
    void instructionFromTheCommandsDestructorIsRefused();
    void instructionFromThePluginsDestructorIsNeverAnswered();
    void instructionFromTheDriversDestructorIsRefusedOnceItHasGone();
    void commandThatIsNotMadeAnswersFailure();
    void commandWhoseMakingThrowsAnswersFailure();

private:
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_ask;
    ScriptPointer m_own;
    ScriptPointer m_answer;
    ScriptPointer m_stream;
};

namespace {

const QString c_driver = QStringLiteral("driver");
const QString c_myself = QStringLiteral("myself");
const QString c_answer = QStringLiteral("answer");
const QString c_stream = QStringLiteral("stream");
const QString c_ask = QStringLiteral("ask");
const QString c_own = QStringLiteral("own");
const QString c_value = QStringLiteral("value");
const QString c_stop = QStringLiteral("stopListening");
Values failure()
{
    return {{QStringLiteral("cmd_success"), false}};
}

void expectWarning(const QString& pattern)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(pattern));
}

bool publish(ScriptedCommand& command)
{
    return command.commandUpdateResult(c_value, 7);
}

} // namespace

void TstTargets::init()
{
    m_bench = std::make_unique<Workbench>();
    m_ask = m_bench->deviceRoot.addCommand(c_ask);
    m_own = m_bench->deviceRoot.addCommand(c_own, c_stop);
    m_own->execute = publish;
    m_answer = m_bench->driverRoot.addCommand(c_answer);
    m_answer->execute = publish;
    m_stream = m_bench->driverRoot.addCommand(c_stream, c_stop);
    m_bench->set();
}

void TstTargets::driverIsTheLinkedInstance()
{
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_answer) != 0; };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_answer->executed, 1);
    QCOMPARE(m_ask->replies.size(), 1);
}

void TstTargets::myselfIsTheOwnInstance()
{
    auto* other = m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid());
    QVERIFY(other != nullptr);
    QObject* target = nullptr;
    m_own->execute = [&](ScriptedCommand& command) {
        target = command.parent();
        return true;
    };
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_myself, c_own) != 0; };
    const auto order = m_bench->host->createOrder(*other, c_ask);
    order->start();
    Workbench::settle();
    QCOMPARE(target, other);
}

void TstTargets::anythingElseIsTheNameOfAnInstance()
{
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(QStringLiteral("Driver"), c_answer) != 0; };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 1);
}

void TstTargets::nameIsTheOneInTheConfiguration()
{
    const auto config = QSharedPointer<QJsonObject>::create();
    config->insert(QStringLiteral("name"), QStringLiteral("Line 2"));
    auto* named = m_bench->host->createInstance(m_bench->driverRoot, QUuid::createUuid(), config);
    QCOMPARE(named->getName(), QStringLiteral("Line 2"));
    QObject* target = nullptr;
    m_answer->execute = [&](ScriptedCommand& command) {
        target = command.parent();
        return publish(command);
    };
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(QStringLiteral("Line 2"), c_answer) != 0; };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(target, named);
}

void TstTargets::commandMayRunItselfAgain()
{
    m_ask->execute = [&](ScriptedCommand& command) {
        return m_ask->executed == 1 ? command.ask(c_myself, c_ask) != 0 : publish(command);
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->executed, 2);
    QCOMPARE(m_ask->replies, QList<Values>({{{c_value, 7}}}));
}

void TstTargets::chainToMyselfGoesOneTurnAtATime()
{
    // Each run asks for the next one; each answers when it has been answered.
    constexpr int c_runs = 5;
    m_ask->execute = [&](ScriptedCommand& command) {
        return m_ask->executed < c_runs ? command.ask(c_myself, c_ask) != 0 : publish(command);
    };
    m_ask->onReply = [](ScriptedCommand& command, quint64) {
        bool ok = true;
        publish(command);
        command.commandFinish(ok);
    };
    const auto order = m_bench->start(c_ask);
    for (int run = 1; run <= c_runs; ++run) {
        Workbench::turn();
        QCOMPARE(m_ask->executed, run);
    }
    Workbench::settle();
    QCOMPARE(m_ask->executed, c_runs);
    QCOMPARE(m_ask->replies.size(), c_runs - 1);
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
}

void TstTargets::unknownTargetIsRefused()
{
    quint64 id = 1;
    m_ask->execute = [&](ScriptedCommand& command) {
        id = command.ask(QStringLiteral("nobody"), c_answer);
        return true;
    };
    expectWarning(QStringLiteral("\"answer\" to \"nobody\", sent by \"ask\" is refused: there is no such target"));
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(id, quint64(0));
    QCOMPARE(m_ask->replies.size(), 0);
}

void TstTargets::whatIsRefusedAgainAndAgainIsLoggedOnceWithItsDevice()
{
    const LogCapture log;
    constexpr int c_times = 1000;
    m_ask->execute = [&](ScriptedCommand& command) {
        for (int i = 0; i < c_times; ++i) {
            command.ask(QStringLiteral("nobody"), c_answer);
        }
        return true;
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    m_bench->clock.advance(RepeatedWarnings::c_pauseMs);
    const QString device = m_bench->device->getDebugIdentification();
    QCOMPARE(log.messages().size(), 2);
    for (const LogMessage& message : log.messages()) {
        QCOMPARE(message.type, QtWarningMsg);
        QCOMPARE(message.category, QStringLiteral("workplace.plugins_management"));
        QVERIFY2(message.text.startsWith(device), qPrintable(message.text));
    }
    QVERIFY2(log.messages().last().text.endsWith(QStringLiteral("(999 × in 10 s)")),
             qPrintable(log.messages().last().text));
}

void TstTargets::driverThatIsNotLinkedIsRefused()
{
    auto* unlinked = m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid());
    quint64 id = 1;
    m_ask->execute = [&](ScriptedCommand& command) {
        id = command.ask(c_driver, c_answer);
        return true;
    };
    expectWarning(QStringLiteral("\"answer\" to \"driver\".*link the driver"));
    const auto order = m_bench->host->createOrder(*unlinked, c_ask);
    order->start();
    Workbench::settle();
    QCOMPARE(id, quint64(0));
}

void TstTargets::unknownInstructionIsRefused()
{
    quint64 id = 1;
    m_ask->execute = [&](ScriptedCommand& command) {
        id = command.ask(c_driver, QStringLiteral("fly"));
        return true;
    };
    expectWarning(QStringLiteral("\"fly\" to \"driver\".*no such command, it has: answer, stream, stopListening"));
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(id, quint64(0));
}

void TstTargets::stopCommandIsAnInstructionToo()
{
    const auto listening = m_bench->start(c_own);
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_myself, c_stop) != 0; };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(listening->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(m_ask->replies, QList<Values>({{{QStringLiteral("cmd_success"), true}}}));
}

void TstTargets::limitMustBeAboveZero_data()
{
    QTest::addColumn<int>("limitMs");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("zero") << 0 << false;
    QTest::newRow("one millisecond") << 1 << true;
}

void TstTargets::limitMustBeAboveZero()
{
    QFETCH(int, limitMs);
    QFETCH(bool, accepted);
    quint64 id = 0;
    m_ask->execute = [&](ScriptedCommand& command) {
        id = command.ask(c_driver, c_answer, {}, limitMs);
        return true;
    };
    if (!accepted) {
        expectWarning(QStringLiteral("\"ask\" cannot send \"answer\" to \"driver\": its limit of -?\\d+ ms"));
    }
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(id != 0, accepted);
    QCOMPARE(m_answer->executed, accepted ? 1 : 0);
}

void TstTargets::targetThatHasGoneIsRefused()
{
    quint64 id = 1;
    m_ask->execute = [&](ScriptedCommand& command) {
        id = command.ask(c_driver, c_answer);
        return true;
    };
    delete m_bench->driver;
    expectWarning(QStringLiteral("there is no such target"));
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(id, quint64(0));
}

void TstTargets::targetThatGoesBeforeItRunsAnswersFailure()
{
    m_ask->execute = [&](ScriptedCommand& command) {
        command.ask(c_driver, c_answer);
        delete m_bench->driver;
        return true;
    };
    expectWarning(QStringLiteral("\"answer\" to \"driver\", sent by \"ask\" is over: its target is gone"));
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_answer->executed, 0);
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstTargets::targetThatGoesWhileItRunsAnswersFailure()
{
    m_answer->execute = {};
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_answer) != 0; };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_answer->executed, 1);
    expectWarning(QStringLiteral("\"answer\" to \"driver\", sent by \"ask\" is over: its target is gone"));
    delete m_bench->driver;
    QCOMPARE(m_ask->replies.size(), 0);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstTargets::openSubscriptionToATargetThatGoesFallsSilent()
{
    m_ask->execute = [](ScriptedCommand& command) { return command.subscribe(c_driver, c_stream) != 0; };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    expectWarning(QStringLiteral("\"stream\" to \"driver\", sent by \"ask\" is over: its target is gone"));
    delete m_bench->driver;
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 0);
    QCOMPARE(order->state(), DOrder::State::Running);
}

void TstTargets::instructionAfterTheEndIsRefused()
{
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    bool ok = true;
    QVERIFY(m_ask->last->commandFinish(ok));
    expectWarning(QStringLiteral("\"ask\" cannot send \"answer\" to \"driver\": its run is not open"));
    QCOMPARE(m_ask->last->ask(c_driver, c_answer), quint64(0));
    Workbench::settle();
    QCOMPARE(m_answer->executed, 0);
}

void TstTargets::instructionWithoutAnOrderIsRefused()
{
    ScriptedCommand command(m_ask, {}, nullptr);
    expectWarning(QStringLiteral("\"ask\" cannot send \"answer\" to \"driver\": the command has no order"));
    QCOMPARE(command.ask(c_driver, c_answer), quint64(0));
}

void TstTargets::instructionFromAnotherThreadIsRefused()
{
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    expectWarning(QStringLiteral("\"ask\" cannot send \"answer\" to \"driver\": it comes from another thread"));
    quint64 id = 1;
    std::thread([&] { id = m_ask->last->ask(c_driver, c_answer); }).join();
    QCOMPARE(id, quint64(0));
    Workbench::settle();
    QCOMPARE(m_answer->executed, 0);
}

void TstTargets::instructionFromTheCommandsDestructorIsRefused()
{
    quint64 id = 1;
    m_ask->destroy = [&](ScriptedCommand& command) { id = command.ask(c_driver, c_answer); };
    auto order = m_bench->start(c_ask);
    Workbench::settle();
    expectWarning(QStringLiteral("the command has no order"));
    order.reset();
    Workbench::settle();
    QCOMPARE(id, quint64(0));
    QCOMPARE(m_answer->executed, 0);
}

void TstTargets::instructionFromThePluginsDestructorIsNeverAnswered()
{
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    m_bench->device->onDestruction = [&] {
        QVERIFY(m_ask->last->ask(c_driver, c_answer) != 0);
        QVERIFY(m_ask->last->ask(c_myself, c_own) != 0);
    };
    expectWarning(QStringLiteral("\"own\" to \"myself\", sent by \"ask\" is over: its target is gone"));
    delete m_bench->device;
    Workbench::settle();
    QCOMPARE(m_answer->executed, 1); // what was asked of somebody else is still done
    QCOMPARE(m_own->executed, 0);
    QCOMPARE(m_ask->replies.size(), 0);
    QCOMPARE(order->outcome(), DOrder::Outcome::Gone);
}

void TstTargets::instructionFromTheDriversDestructorIsRefusedOnceItHasGone()
{
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    m_bench->driver->onDestruction = [&] { QVERIFY(m_ask->last->ask(c_driver, c_answer) != 0); };
    expectWarning(QStringLiteral("is over: its target is gone"));
    delete m_bench->driver;
    expectWarning(QStringLiteral("there is no such target"));
    QCOMPARE(m_ask->last->ask(c_driver, c_answer), quint64(0));
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstTargets::commandThatIsNotMadeAnswersFailure()
{
    m_answer->share = [](ScriptedCommand* command) {
        delete command;
        return QSharedPointer<ICommand>();
    };
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_answer) != 0; };
    expectWarning(QStringLiteral("makes no command \"answer\""));
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstTargets::commandWhoseMakingThrowsAnswersFailure()
{
    m_answer->share = [](ScriptedCommand* command) -> QSharedPointer<ICommand> {
        delete command;
        throw std::runtime_error("no memory for a frame");
    };
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_answer) != 0; };
    expectWarning(QStringLiteral("makes no command \"answer\".*no memory for a frame"));
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

QTEST_GUILESS_MAIN(TstTargets)
#include "tst_targets.moc"
