#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include "workbench.h"

/// Limits of instructions and of runs: one millisecond before, and at the limit.
class TstLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void silenceUpToTheLimitIsNoFailure();
    void silenceAtTheLimitIsAFailure();
    void answerJustBeforeTheLimitIsTheReply();
    void answerProducedBeforeTheLimitComesFirst();
    void answerAfterTheLimitIsDropped();
    void limitNamesTheInstructionInTheLog();
    void limitEndsTheTargetsRun();
    void answeredInstructionHasNoLimitAnyMore();
    void stoppedInstructionHasNoLimitAnyMore();
    void silenceOnAnOpenSubscriptionIsNoFailure();
    void subscriptionOpensInItsTurnHoweverLateThatIs();
    void eachInstructionHasItsOwnLimit();
    void runGoesOnUpToItsLimit();
    void runEndsAtItsLimit();
    void resultProducedBeforeTheRunsLimitIsHeard();
    void replyProducedBeforeTheRunsLimitComesFirst();
    void runWithoutLimitGoesOn();
    void endedRunLeavesNoTimer();

private:
    void startAsking(int limitMs, const Values& parameters = {});
    void advance(int ms);

    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_ask;
    ScriptPointer m_answer;
    std::unique_ptr<DOrder> m_order;
};

namespace {

const QString c_driver = QStringLiteral("driver");
const QString c_answer = QStringLiteral("answer");
const QString c_ask = QStringLiteral("ask");
const QString c_value = QStringLiteral("value");
Values failure()
{
    return {{QStringLiteral("cmd_success"), false}};
}
Values subscription()
{
    return {{QStringLiteral("subscription"), true}};
}

void expectLimit(const QString& command, int limitMs)
{
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(
            QStringLiteral("the instruction \"%1\" to \"driver\", sent by \"ask\" had no answer within .* %2 ms")
                .arg(command)
                .arg(limitMs)));
}

void publishAndEnd(ScriptedCommand& command)
{
    bool ok = true;
    command.commandUpdateResult(c_value, 1);
    command.commandFinish(ok);
}

} // namespace

void TstLimits::init()
{
    m_order.reset();
    m_bench = std::make_unique<Workbench>();
    m_ask = m_bench->deviceRoot.addCommand(c_ask);
    m_answer = m_bench->driverRoot.addCommand(c_answer);
    m_bench->set();
}

void TstLimits::startAsking(int limitMs, const Values& parameters)
{
    m_ask->execute = [=](ScriptedCommand& command) {
        return command.ask(c_driver, c_answer, parameters, limitMs) != 0;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
}

void TstLimits::advance(int ms)
{
    m_bench->clock.advance(ms);
    Workbench::settle();
}

void TstLimits::silenceUpToTheLimitIsNoFailure()
{
    startAsking(2000);
    advance(1999);
    QCOMPARE(m_ask->replies.size(), 0);
}

void TstLimits::silenceAtTheLimitIsAFailure()
{
    startAsking(2000);
    expectLimit(c_answer, 2000);
    advance(1999);
    advance(1);
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstLimits::answerJustBeforeTheLimitIsTheReply()
{
    startAsking(2000);
    advance(1999);
    publishAndEnd(*m_answer->last);
    Workbench::settle();
    advance(10);
    QCOMPARE(m_ask->replies, QList<Values>({{{c_value, 1}}}));
}

void TstLimits::answerProducedBeforeTheLimitComesFirst()
{
    startAsking(2000);
    publishAndEnd(*m_answer->last);
    m_bench->clock.advance(2000); // the answer is on its way, undelivered
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_value, 1}}}));
}

void TstLimits::answerAfterTheLimitIsDropped()
{
    startAsking(2000);
    bool answered = false;
    m_answer->finish = [&](ScriptedCommand& command, bool& ok) {
        command.commandUpdateResult(c_value, 1);
        answered = true;
        return command.commandFinish(ok);
    };
    expectLimit(c_answer, 2000);
    advance(2000);
    QVERIFY(answered);
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstLimits::limitNamesTheInstructionInTheLog()
{
    startAsking(700);
    expectLimit(c_answer, 700);
    advance(700);
}

void TstLimits::limitEndsTheTargetsRun()
{
    startAsking(2000);
    expectLimit(c_answer, 2000);
    advance(2000);
    QCOMPARE(m_answer->finished, 1);
    QVERIFY(m_answer->last == nullptr);
}

void TstLimits::answeredInstructionHasNoLimitAnyMore()
{
    startAsking(2000);
    publishAndEnd(*m_answer->last);
    Workbench::settle();
    QCOMPARE(m_bench->clock.waiting(), 0);
}

void TstLimits::stoppedInstructionHasNoLimitAnyMore()
{
    startAsking(2000);
    m_ask->last->stopTheInstruction(1);
    QCOMPARE(m_bench->clock.waiting(), 0);
}

void TstLimits::silenceOnAnOpenSubscriptionIsNoFailure()
{
    startAsking(2000, subscription());
    advance(24 * 3600 * 1000);
    QCOMPARE(m_ask->replies.size(), 0);
    m_answer->last->commandUpdateResult(c_value, 1);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_value, 1}}}));
}

void TstLimits::subscriptionOpensInItsTurnHoweverLateThatIs()
{
    m_ask->execute = [&](ScriptedCommand& command) {
        command.subscribe(c_driver, c_answer, 2000);
        m_bench->clock.advance(2000); // the event loop was held up that long
        return true;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_answer->executed, 1);
    QCOMPARE(m_ask->replies.size(), 0);
}

void TstLimits::eachInstructionHasItsOwnLimit()
{
    m_ask->execute = [](ScriptedCommand& command) {
        command.ask(c_driver, c_answer, {}, 300);
        command.ask(c_driver, c_answer, {}, 200);
        return true;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    expectLimit(c_answer, 200);
    advance(299);
    QCOMPARE(m_ask->replyIds, QList<quint64>({2}));
    expectLimit(c_answer, 300);
    advance(1);
    QCOMPARE(m_ask->replyIds, QList<quint64>({2, 1}));
}

void TstLimits::runGoesOnUpToItsLimit()
{
    m_order = m_bench->start(c_ask, {}, 500);
    Workbench::settle();
    advance(499);
    QCOMPARE(m_order->state(), DOrder::State::Running);
}

void TstLimits::runEndsAtItsLimit()
{
    m_order = m_bench->start(c_ask, {}, 500);
    Workbench::settle();
    const QSignalSpy announced(m_order.get(), &DOrder::sigFinished);
    advance(500);
    QCOMPARE(m_order->outcome(), DOrder::Outcome::TimedOut);
    QCOMPARE(m_ask->finished, 1);
    QCOMPARE(announced.size(), 1);
}

void TstLimits::resultProducedBeforeTheRunsLimitIsHeard()
{
    m_order = m_bench->start(c_ask, {}, 500);
    Workbench::settle();
    const QSignalSpy heard(m_order.get(), &DOrder::sigResultsPublished);
    m_ask->last->commandUpdateResult(c_value, 1);
    advance(500);
    QCOMPARE(heard.size(), 1);
}

void TstLimits::replyProducedBeforeTheRunsLimitComesFirst()
{
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_answer) != 0; };
    m_ask->onReply = [](ScriptedCommand& command, quint64) { publishAndEnd(command); };
    m_order = m_bench->start(c_ask, {}, 500);
    Workbench::settle();
    publishAndEnd(*m_answer->last);
    m_bench->clock.advance(500); // the answer is on its way, undelivered
    Workbench::settle();
    QCOMPARE(m_order->outcome(), DOrder::Outcome::Finished);
}

void TstLimits::runWithoutLimitGoesOn()
{
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    advance(24 * 3600 * 1000);
    QCOMPARE(m_order->state(), DOrder::State::Running);
}

void TstLimits::endedRunLeavesNoTimer()
{
    m_order = m_bench->start(c_ask, {}, 500);
    Workbench::settle();
    m_order->stop();
    QCOMPARE(m_bench->clock.waiting(), 0);
}

QTEST_GUILESS_MAIN(TstLimits)
#include "tst_limits.moc"
