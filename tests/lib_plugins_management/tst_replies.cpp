#include <QSignalSpy>
#include <QTest>

#include "workbench.h"

/// What a reply holds: of a single instruction, of a subscription, of a refusal; and what an order's results are.
class TstReplies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void replyIsTheDeclaredDefaultsOverlaidWithWhatWasPublished();
    void defaultThatIsInvalidIsNoEntry();
    void singleInstructionHasExactlyOneReply();
    void singleReplyComesOnlyWhenTheRunEnds();
    void runThatEndsWithoutPublishingRepliesItsDefaults();
    void subscriptionReplyIsWhatOneCallPublished();
    void subscriptionHasNoReplyAtTheEnd();
    void refusedRunAnswersFailure();
    void refusedSubscriptionAnswersFailure();
    void replyCarriesTheIdOfItsInstruction();
    void emptyDelegateWantsNoReply();
    void parametersReachTheTarget();
    void orderResultsAreDefaultsOverlaidWithWhatWasPublished();
    void orderResultsAreThereWhileItRuns();
    void secondRunBeginsWithTheDefaults();
    void executingAgainBeginsWithTheDefaults();
    void delegateOfASingleInstructionIsCalledOnce();
    void delegateOfASubscriptionIsCalledEachTime();
    void replyThatNobodyWaitsForIsRefused();
    void publishingWithoutARunIsRefused();
    void publishingAfterTheEndIsRefused();

private:
    void startAsking(const Values& parameters = {});

    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_ask;
    ScriptPointer m_answer;
    std::unique_ptr<DOrder> m_order;
};

namespace {

const QString c_driver = QStringLiteral("driver");
const QString c_answer = QStringLiteral("answer");
const QString c_ask = QStringLiteral("ask");
const QString c_stop = QStringLiteral("stop");
const QString c_success = QStringLiteral("cmd_success");
const QString c_text = QStringLiteral("text");
const QString c_extra = QStringLiteral("extra");
Values failure()
{
    return {{c_success, false}};
}

} // namespace

void TstReplies::init()
{
    m_order.reset();
    m_bench = std::make_unique<Workbench>();
    m_ask = m_bench->deviceRoot.addCommand(c_ask);
    m_answer = m_bench->driverRoot.addCommand(c_answer, c_stop);
    m_answer->declare = [](ScriptedCommand& command) {
        command.declareAResult(c_success, QStringLiteral("bool"), QStringLiteral("Success"), false);
        command.declareAResult(c_text, QStringLiteral("strg"), QStringLiteral("Text"), QStringLiteral("none"));
        command.declareAResult(QStringLiteral("list"), QStringLiteral("varL"), QStringLiteral("List"), QVariant());
    };
    m_bench->set();
}

void TstReplies::startAsking(const Values& parameters)
{
    m_ask->execute = [parameters](ScriptedCommand& command) {
        return command.ask(c_driver, c_answer, parameters) != 0;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
}

void TstReplies::replyIsTheDeclaredDefaultsOverlaidWithWhatWasPublished()
{
    m_answer->execute = [](ScriptedCommand& command) {
        bool ok = true;
        command.commandUpdateResults({{c_success, true}, {c_extra, 1}});
        command.commandUpdateResult(c_extra, 2);
        return command.commandFinish(ok);
    };
    startAsking();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_success, true}, {c_text, QStringLiteral("none")}, {c_extra, 2}}}));
}

void TstReplies::defaultThatIsInvalidIsNoEntry()
{
    m_answer->execute = [](ScriptedCommand& command) {
        bool ok = true;
        return command.commandFinish(ok);
    };
    startAsking();
    QVERIFY(!m_ask->replies.first().contains(QStringLiteral("list")));
}

void TstReplies::singleInstructionHasExactlyOneReply()
{
    m_answer->execute = [](ScriptedCommand& command) {
        command.commandUpdateResult(c_extra, 1);
        command.commandUpdateResult(c_extra, 2);
        bool ok = true;
        return command.commandFinish(ok);
    };
    startAsking();
    m_bench->clock.advance(5000);
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 1);
}

void TstReplies::singleReplyComesOnlyWhenTheRunEnds()
{
    startAsking();
    m_answer->last->commandUpdateResult(c_success, true);
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 0);
    bool ok = true;
    m_answer->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 1);
}

void TstReplies::runThatEndsWithoutPublishingRepliesItsDefaults()
{
    m_answer->execute = [](ScriptedCommand& command) {
        bool ok = true;
        return command.commandFinish(ok);
    };
    startAsking();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_success, false}, {c_text, QStringLiteral("none")}}}));
}

void TstReplies::subscriptionReplyIsWhatOneCallPublished()
{
    startAsking({{QStringLiteral("subscription"), true}});
    m_answer->last->commandUpdateResult(c_extra, 1);
    m_answer->last->commandUpdateResults({{c_success, true}, {c_extra, 2}});
    m_answer->last->commandUpdateResult(c_extra, 2);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_extra, 1}}, {{c_success, true}, {c_extra, 2}}, {{c_extra, 2}}}));
}

void TstReplies::subscriptionHasNoReplyAtTheEnd()
{
    startAsking({{QStringLiteral("subscription"), true}});
    bool ok = true;
    m_answer->last->commandUpdateResult(c_extra, 1);
    m_answer->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_extra, 1}}}));
}

void TstReplies::refusedRunAnswersFailure()
{
    m_answer->execute = [](ScriptedCommand& command) {
        command.commandUpdateResult(c_extra, 1);
        return false;
    };
    startAsking();
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstReplies::refusedSubscriptionAnswersFailure()
{
    m_answer->execute = [](ScriptedCommand&) { return false; };
    startAsking({{QStringLiteral("subscription"), true}});
    QCOMPARE(m_ask->replies, QList<Values>({failure()}));
}

void TstReplies::replyCarriesTheIdOfItsInstruction()
{
    m_answer->execute = [](ScriptedCommand& command) {
        bool ok = true;
        return command.commandFinish(ok);
    };
    QList<quint64> ids;
    m_ask->execute = [&](ScriptedCommand& command) {
        ids = {command.ask(c_driver, c_answer), command.ask(c_driver, c_answer)};
        return true;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->replyIds, ids);
}

void TstReplies::emptyDelegateWantsNoReply()
{
    m_answer->execute = [](ScriptedCommand& command) {
        bool ok = true;
        return command.commandFinish(ok);
    };
    m_ask->execute = [](ScriptedCommand& command) {
        return command.addInstruction(c_driver, c_answer, {}, 1000, ReplyDelegate()) != 0;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_answer->executed, 1);
    QCOMPARE(m_ask->replies.size(), 0);
    QCOMPARE(m_order->state(), DOrder::State::Running);
}

void TstReplies::parametersReachTheTarget()
{
    const Values parameters{{QStringLiteral("frame"), QByteArray("ATS\r\n")}, {QStringLiteral("timeout"), 500}};
    startAsking(parameters);
    QCOMPARE(m_answer->arguments, QList<Values>({parameters}));
}

void TstReplies::orderResultsAreDefaultsOverlaidWithWhatWasPublished()
{
    m_ask->declare = [](ScriptedCommand& command) {
        command.declareAResult(c_success, QStringLiteral("bool"), QStringLiteral("Success"), false);
        command.declareAResult(c_text, QStringLiteral("strg"), QStringLiteral("Text"), QStringLiteral("none"));
    };
    m_ask->execute = [](ScriptedCommand& command) {
        bool ok = true;
        command.commandUpdateResult(c_success, true);
        return command.commandFinish(ok);
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    const Values expected{{c_success, true}, {c_text, QStringLiteral("none")}};
    QCOMPARE(m_order->results(), expected);
}

void TstReplies::orderResultsAreThereWhileItRuns()
{
    m_order = m_bench->start(c_ask);
    QCOMPARE(m_order->results(), Values());
    Workbench::settle();
    m_ask->last->commandUpdateResult(c_extra, 1);
    QCOMPARE(m_order->results(), Values({{c_extra, 1}}));
}

void TstReplies::secondRunBeginsWithTheDefaults()
{
    m_answer->execute = [&](ScriptedCommand& command) {
        bool ok = true;
        if (m_answer->executed == 1) {
            command.commandUpdateResult(c_success, true);
        }
        return command.commandFinish(ok);
    };
    m_ask->execute = [](ScriptedCommand& command) {
        command.ask(c_driver, c_answer);
        command.ask(c_driver, c_answer);
        return true;
    };
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->replies.value(0).value(c_success), QVariant(true));
    QCOMPARE(m_ask->replies.value(1).value(c_success), QVariant(false));
}

void TstReplies::executingAgainBeginsWithTheDefaults()
{
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    m_ask->last->commandUpdateResult(c_extra, 1);
    QVERIFY(m_ask->last->commandExecute());
    QCOMPARE(m_order->results(), Values());
}

void TstReplies::delegateOfASingleInstructionIsCalledOnce()
{
    startAsking();
    QVERIFY(m_ask->last->setReply(1, {{c_extra, 1}}));
    QVERIFY(!m_ask->last->setReply(1, {{c_extra, 2}}));
    QCOMPARE(m_ask->replies, QList<Values>({{{c_extra, 1}}}));
}

void TstReplies::delegateOfASubscriptionIsCalledEachTime()
{
    startAsking({{QStringLiteral("subscription"), true}});
    QVERIFY(m_ask->last->setReply(1, {{c_extra, 1}}));
    QVERIFY(m_ask->last->setReply(1, {{c_extra, 2}}));
    QCOMPARE(m_ask->replies.size(), 2);
}

void TstReplies::replyThatNobodyWaitsForIsRefused()
{
    startAsking();
    QVERIFY(!m_ask->last->setReply(0, {{c_extra, 1}}));
    QVERIFY(!m_ask->last->setReply(2, {{c_extra, 1}}));
    QCOMPARE(m_ask->replies.size(), 0);
}

void TstReplies::publishingWithoutARunIsRefused()
{
    ScriptedCommand command(m_answer, {}, nullptr);
    QVERIFY(!command.commandUpdateResult(c_extra, 1));
    QVERIFY(!command.commandUpdateResults({{c_extra, 1}}));
}

void TstReplies::publishingAfterTheEndIsRefused()
{
    m_order = m_bench->start(c_ask);
    Workbench::settle();
    const QSignalSpy published(m_order.get(), &DOrder::sigResultsPublished);
    bool ok = true;
    m_ask->last->commandFinish(ok);
    QVERIFY(!m_ask->last->commandUpdateResult(c_extra, 1));
    Workbench::settle();
    QCOMPARE(published.size(), 0);
    QCOMPARE(m_order->results(), Values());
}

QTEST_GUILESS_MAIN(TstReplies)
#include "tst_replies.moc"
