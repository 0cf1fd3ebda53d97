#include <QTest>

#include "workbench.h"

/// Nothing is delivered from inside a call, and everything in the order in which it was produced.
class TstDelivery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void orderDoesNotRunInsideStart();
    void instructionDoesNotRunInsideAddInstruction();
    void replyDoesNotComeInsideTheTargetsRun();
    void instructionFromInsideADelegateRunsLater();
    void resultsAreNotAnnouncedInsideTheCommandsCall();
    void endIsNotAnnouncedInsideTheCommandsCall();
    void resultsAreAnnouncedBeforeTheEnd();
    void instructionsRunInTheOrderInWhichTheyWereSent();
    void repliesComeInTheOrderInWhichTheyWereProduced();
    void resultReachesTheDelegateInOneTurn();
    void lateReplyOfAStoppedInstructionIsDropped();
    void lateReplyDoesNotReachAFinishedCommand();
    void lateReplyDoesNotReachTheNextRun();
    void instructionIdsAreNeverUsedTwice();
    void replyInTheSameTurnAsTheStopIsDropped();
    void instructionStoppedAtOnceNeverRuns();
    void onlyTheSenderCanStopItsInstruction();
    void stoppedInstructionEndsTheTargetsRun();
    void instructionSentAtTheEndIsStillDone();

private:
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_ask;    // of the device; its one instruction goes to "answer"
    ScriptPointer m_answer; // of the driver; publishes "value" and ends
    ScriptPointer m_listen; // of the device; subscribes to "stream"
    ScriptPointer m_stream; // of the driver; publishes when the test makes it
};

namespace {

const QString c_driver = QStringLiteral("driver");
const QString c_answer = QStringLiteral("answer");
const QString c_stream = QStringLiteral("stream");
const QString c_ask = QStringLiteral("ask");
const QString c_listen = QStringLiteral("listen");
const QString c_value = QStringLiteral("value");
const QString c_stop = QStringLiteral("stopListening");

bool publishAndEnd(ScriptedCommand& command, int value)
{
    bool ok = true;
    return command.commandUpdateResult(c_value, value) && command.commandFinish(ok);
}

} // namespace

void TstDelivery::init()
{
    m_bench = std::make_unique<Workbench>();
    m_ask = m_bench->deviceRoot.addCommand(c_ask);
    m_ask->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_answer) != 0; };
    m_listen = m_bench->deviceRoot.addCommand(c_listen, c_stop);
    m_listen->execute = [](ScriptedCommand& command) { return command.subscribe(c_driver, c_stream) != 0; };
    m_answer = m_bench->driverRoot.addCommand(c_answer);
    m_answer->execute = [](ScriptedCommand& command) {
        return publishAndEnd(command, command.getParameterValue(c_value, 7).toInt());
    };
    m_stream = m_bench->driverRoot.addCommand(c_stream, c_stop);
    m_bench->set();
}

void TstDelivery::orderDoesNotRunInsideStart()
{
    const auto order = m_bench->start(c_ask);
    QCOMPARE(m_ask->executed, 0);
    QCOMPARE(order->state(), DOrder::State::Queued);
    Workbench::turn();
    QCOMPARE(m_ask->executed, 1);
}

void TstDelivery::instructionDoesNotRunInsideAddInstruction()
{
    int executedInside = -1;
    m_ask->execute = [&](ScriptedCommand& command) {
        command.ask(c_driver, c_answer);
        executedInside = m_answer->executed;
        return true;
    };
    const auto order = m_bench->start(c_ask);
    Workbench::turn();
    QCOMPARE(executedInside, 0);
    QCOMPARE(m_answer->executed, 0);
    Workbench::turn();
    QCOMPARE(m_answer->executed, 1);
}

void TstDelivery::replyDoesNotComeInsideTheTargetsRun()
{
    int repliesInside = -1;
    m_answer->execute = [&](ScriptedCommand& command) {
        publishAndEnd(command, 7);
        repliesInside = m_ask->replies.size();
        return true;
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(repliesInside, 0);
    QCOMPARE(m_ask->replies.size(), 1);
}

void TstDelivery::instructionFromInsideADelegateRunsLater()
{
    int executedInside = -1;
    m_ask->onReply = [&](ScriptedCommand& command, quint64) {
        if (m_ask->replies.size() == 1) {
            command.ask(c_driver, c_answer);
            executedInside = m_answer->executed;
        }
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(executedInside, 1);
    QCOMPARE(m_ask->replies.size(), 2);
}

void TstDelivery::resultsAreNotAnnouncedInsideTheCommandsCall()
{
    int announced = 0;
    int announcedInside = -1;
    m_ask->execute = [&](ScriptedCommand& command) {
        command.commandUpdateResult(c_value, 1);
        announcedInside = announced;
        return true;
    };
    const auto order = m_bench->start(c_ask);
    connect(order.get(), &DOrder::sigResultsPublished, this, [&] { ++announced; });
    Workbench::settle();
    QCOMPARE(announcedInside, 0);
    QCOMPARE(announced, 1);
}

void TstDelivery::endIsNotAnnouncedInsideTheCommandsCall()
{
    int announced = 0;
    int announcedInside = -1;
    m_ask->execute = [&](ScriptedCommand& command) {
        bool ok = true;
        command.commandFinish(ok);
        announcedInside = announced;
        return true;
    };
    const auto order = m_bench->start(c_ask);
    connect(order.get(), &DOrder::sigFinished, this, [&] { ++announced; });
    Workbench::settle();
    QCOMPARE(announcedInside, 0);
    QCOMPARE(announced, 1);
}

void TstDelivery::resultsAreAnnouncedBeforeTheEnd()
{
    m_ask->execute = [](ScriptedCommand& command) {
        command.commandUpdateResult(c_value, 1);
        return publishAndEnd(command, 2);
    };
    QString heard;
    const auto order = m_bench->start(c_ask);
    connect(order.get(), &DOrder::sigResultsPublished, this,
            [&](const Values& values) { heard += values.value(c_value).toString() + QLatin1Char(' '); });
    connect(order.get(), &DOrder::sigFinished, this, [&] { heard += QStringLiteral("end"); });
    Workbench::settle();
    QCOMPARE(heard, QStringLiteral("1 2 end"));
}

void TstDelivery::instructionsRunInTheOrderInWhichTheyWereSent()
{
    m_ask->execute = [](ScriptedCommand& command) {
        for (int i = 1; i <= 5; ++i) {
            command.ask(c_driver, c_answer, {{c_value, i}});
        }
        return true;
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QList<int> values;
    for (const Values& arguments : qAsConst(m_answer->arguments)) {
        values.append(arguments.value(c_value).toInt());
    }
    QCOMPARE(values, QList<int>({1, 2, 3, 4, 5}));
}

void TstDelivery::repliesComeInTheOrderInWhichTheyWereProduced()
{
    // The second instruction is answered first, with the stream speaking in between.
    m_ask->execute = [](ScriptedCommand& command) {
        command.subscribe(c_driver, c_stream);
        command.ask(c_driver, c_answer, {{c_value, 2}});
        return true;
    };
    m_answer->execute = [&](ScriptedCommand& command) {
        m_stream->last->commandUpdateResult(c_value, 1);
        publishAndEnd(command, 2);
        m_stream->last->commandUpdateResult(c_value, 3);
        return true;
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QList<int> values;
    for (const Values& reply : qAsConst(m_ask->replies)) {
        values.append(reply.value(c_value).toInt());
    }
    QCOMPARE(values, QList<int>({1, 2, 3}));
}

void TstDelivery::resultReachesTheDelegateInOneTurn()
{
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    m_stream->last->commandUpdateResult(c_value, 1);
    QCOMPARE(m_listen->replies.size(), 0);
    Workbench::turn();
    QCOMPARE(m_listen->replies.size(), 1);
}

void TstDelivery::lateReplyOfAStoppedInstructionIsDropped()
{
    quint64 id = 0;
    m_listen->execute = [&](ScriptedCommand& command) {
        id = command.subscribe(c_driver, c_stream);
        return true;
    };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    m_stream->last->commandUpdateResult(c_value, 1);
    QVERIFY(m_listen->last->stopTheInstruction(id));
    Workbench::settle();
    QCOMPARE(m_listen->replies.size(), 0);
    QCOMPARE(order->state(), DOrder::State::Running);
}

void TstDelivery::lateReplyDoesNotReachAFinishedCommand()
{
    m_answer->execute = {};
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    bool ok = true;
    QVERIFY(m_ask->last->commandFinish(ok));
    publishAndEnd(*m_answer->last, 1);
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 0);
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
}

void TstDelivery::lateReplyDoesNotReachTheNextRun()
{
    m_answer->execute = {};
    const auto first = m_bench->start(c_ask);
    Workbench::settle();
    QPointer<ScriptedCommand> late(m_answer->last);
    first->stop();
    const auto second = m_bench->start(c_ask);
    Workbench::settle();
    QVERIFY(late != m_answer->last);
    publishAndEnd(*late, 1);
    Workbench::settle();
    QCOMPARE(m_ask->replies.size(), 0);
    publishAndEnd(*m_answer->last, 2);
    Workbench::settle();
    QCOMPARE(m_ask->replies, QList<Values>({{{c_value, 2}}}));
}

void TstDelivery::instructionIdsAreNeverUsedTwice()
{
    QList<quint64> ids;
    m_ask->execute = [&](ScriptedCommand& command) {
        ids.append(command.ask(c_driver, c_answer));
        command.stopTheInstruction(ids.last());
        ids.append(command.ask(c_driver, c_answer));
        return true;
    };
    const auto first = m_bench->start(c_ask);
    const auto second = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(ids.size(), 4);
    QCOMPARE(QSet<quint64>(ids.cbegin(), ids.cend()).size(), 4);
    QVERIFY(!ids.contains(0));
}

void TstDelivery::replyInTheSameTurnAsTheStopIsDropped()
{
    // Two results wait for the same turn; the first one's delegate stops the subscription.
    m_listen->onReply = [](ScriptedCommand& command, quint64 id) { command.stopTheInstruction(id); };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    m_stream->last->commandUpdateResult(c_value, 1);
    m_stream->last->commandUpdateResult(c_value, 2);
    Workbench::settle();
    QCOMPARE(m_listen->replies, QList<Values>({{{c_value, 1}}}));
}

void TstDelivery::instructionStoppedAtOnceNeverRuns()
{
    m_ask->execute = [](ScriptedCommand& command) {
        return command.stopTheInstruction(command.ask(c_driver, c_answer));
    };
    const auto order = m_bench->start(c_ask);
    Workbench::settle();
    QCOMPARE(m_ask->executed, 1);
    QCOMPARE(m_answer->executed, 0);
}

void TstDelivery::onlyTheSenderCanStopItsInstruction()
{
    quint64 id = 0;
    m_listen->execute = [&](ScriptedCommand& command) {
        id = command.subscribe(c_driver, c_stream);
        return true;
    };
    bool stopped = true;
    m_ask->execute = [&](ScriptedCommand& command) {
        stopped =
            command.stopTheInstruction(id) || command.stopTheInstruction(0) || command.stopTheInstruction(id + 1000);
        return true;
    };
    const auto listening = m_bench->start(c_listen);
    const auto other = m_bench->start(c_ask);
    Workbench::settle();
    QVERIFY(!stopped);
    m_stream->last->commandUpdateResult(c_value, 1);
    Workbench::settle();
    QCOMPARE(m_listen->replies.size(), 1);
}

void TstDelivery::stoppedInstructionEndsTheTargetsRun()
{
    m_listen->onReply = [](ScriptedCommand& command, quint64 id) { command.stopTheInstruction(id); };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    m_stream->last->commandUpdateResult(c_value, 1);
    Workbench::settle();
    QCOMPARE(m_stream->finished, 1);
    QVERIFY(m_stream->last == nullptr);
}

void TstDelivery::instructionSentAtTheEndIsStillDone()
{
    m_listen->finish = [](ScriptedCommand& command, bool& ok) {
        command.addInstruction(c_driver, c_answer, {{c_value, 9}}, 500, ReplyDelegate());
        return command.commandFinish(ok);
    };
    auto order = m_bench->start(c_listen);
    Workbench::settle();
    order.reset();
    Workbench::settle();
    QCOMPARE(m_answer->executed, 1);
    QCOMPARE(m_stream->finished, 1);
    QCOMPARE(m_listen->replies.size(), 0);
}

QTEST_GUILESS_MAIN(TstDelivery)
#include "tst_delivery.moc"
