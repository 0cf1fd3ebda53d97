#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include "workbench.h"

/// How a run ends: by the command, by its stop command, by the host after its results, by stop(); and what an end
/// closes.
class TstEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void commandEndsItsRun();
    void endHasTheOkOfTheCommand();
    void signalOfTheCommandTellsItsEnd();
    void secondFinishIsRefused();
    void finishWithoutARunIsRefused();
    void commandThatPublishedAndWaitsForNothingIsEnded();
    void commandThatPublishedNothingStaysOpen();
    void commandThatPublishedAndWaitsStaysOpen();
    void commandThatPublishedAndStoppedItsInstructionIsEnded();
    void commandWithAStopCommandStaysOpen();
    void refusedRunIsOver();
    void stopCommandEndsEveryRunThatNamesIt();
    void stopCommandLeavesOtherRunsAlone();
    void stopCommandLeavesOtherDevicesAlone();
    void stopCommandWithNothingToStopSucceeds();
    void stopCommandMayBeSentByARunThatItStops();
    void stopLetsTheCommandFinish();
    void stopBeforeTheRunNeverRunsIt();
    void stopOfAnEndedRunDoesNothing();
    void stopFromInsideTheEndDoesNothing();
    void commandThatDoesNotFinishWhenToldIsEndedAllTheSame();
    void endClosesTheSubscription();
    void endIsAnnouncedOnce();
    void startingTwiceRunsOnce();
    void commandWithoutAnOrderIsNotRun();
    void commandOfAnEndedOrderIsNotRun();
    void commandKnowsItsOrderWhileItIsLinked();
    void unknownCommandHasNoOrder();

private:
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_work;   // of the device; no stop command
    ScriptPointer m_listen; // of the device; stopped by "stopListening"
    ScriptPointer m_scan;   // the same
    ScriptPointer m_watch;  // of the device; stopped by "stopWatching"
    ScriptPointer m_stream; // of the driver
    ScriptPointer m_slow;   // of the driver; never answers
};

namespace {

const QString c_work = QStringLiteral("work");
const QString c_listen = QStringLiteral("listen");
const QString c_scan = QStringLiteral("scan");
const QString c_watch = QStringLiteral("watch");
const QString c_stop = QStringLiteral("stopListening");
const QString c_stream = QStringLiteral("stream");
const QString c_slow = QStringLiteral("slow");
const QString c_driver = QStringLiteral("driver");
const QString c_value = QStringLiteral("value");
Values success()
{
    return {{QStringLiteral("cmd_success"), true}};
}

} // namespace

void TstEnds::init()
{
    m_bench = std::make_unique<Workbench>();
    m_work = m_bench->deviceRoot.addCommand(c_work);
    m_listen = m_bench->deviceRoot.addCommand(c_listen, c_stop);
    m_scan = m_bench->deviceRoot.addCommand(c_scan, c_stop);
    m_watch = m_bench->deviceRoot.addCommand(c_watch, QStringLiteral("stopWatching"));
    m_stream = m_bench->driverRoot.addCommand(c_stream, c_stop);
    m_slow = m_bench->driverRoot.addCommand(c_slow);
    m_bench->set();
}

void TstEnds::commandEndsItsRun()
{
    m_work->execute = [](ScriptedCommand& command) {
        bool ok = true;
        return command.commandFinish(ok);
    };
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QCOMPARE(order->state(), DOrder::State::Ended);
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
}

void TstEnds::endHasTheOkOfTheCommand()
{
    bool wanted = true;
    m_work->execute = [&](ScriptedCommand& command) {
        bool ok = wanted;
        return command.commandFinish(ok);
    };
    const auto good = m_bench->start(c_work);
    Workbench::settle();
    QVERIFY(good->endedOk());
    wanted = false;
    const auto bad = m_bench->start(c_work);
    Workbench::settle();
    QVERIFY(!bad->endedOk());
    QCOMPARE(bad->outcome(), DOrder::Outcome::Finished);
}

void TstEnds::signalOfTheCommandTellsItsEnd()
{
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    const QSignalSpy spy(m_work->last, &DAbstractCommand::sigCommandFinished);
    bool ok = false;
    m_work->last->commandFinish(ok);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().toBool(), false);
}

void TstEnds::secondFinishIsRefused()
{
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    const QSignalSpy spy(m_work->last, &DAbstractCommand::sigCommandFinished);
    bool ok = true;
    QVERIFY(m_work->last->commandFinish(ok));
    QVERIFY(!m_work->last->commandFinish(ok));
    QVERIFY(!m_work->last->finishTheCommand(ok));
    QCOMPARE(spy.size(), 1);
}

void TstEnds::finishWithoutARunIsRefused()
{
    ScriptedCommand command(m_work, {}, nullptr);
    const QSignalSpy spy(&command, &DAbstractCommand::sigCommandFinished);
    bool ok = true;
    QVERIFY(!command.finishTheCommand(ok));
    QVERIFY(ok);
    QCOMPARE(spy.size(), 0);
}

void TstEnds::commandThatPublishedAndWaitsForNothingIsEnded()
{
    m_work->execute = [](ScriptedCommand& command) { return command.commandUpdateResult(c_value, 1); };
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
    QVERIFY(order->endedOk());
    QCOMPARE(order->results(), Values({{c_value, 1}}));
    QCOMPARE(m_work->finished, 1);
}

void TstEnds::commandThatPublishedNothingStaysOpen()
{
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QCOMPARE(order->state(), DOrder::State::Running);
}

void TstEnds::commandThatPublishedAndWaitsStaysOpen()
{
    m_work->execute = [](ScriptedCommand& command) {
        return command.ask(c_driver, c_slow) != 0 && command.commandUpdateResult(c_value, 1);
    };
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QCOMPARE(order->state(), DOrder::State::Running);
}

void TstEnds::commandThatPublishedAndStoppedItsInstructionIsEnded()
{
    m_work->execute = [](ScriptedCommand& command) {
        command.stopTheInstruction(command.ask(c_driver, c_slow));
        return command.commandUpdateResult(c_value, 1);
    };
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
}

void TstEnds::commandWithAStopCommandStaysOpen()
{
    m_listen->execute = [](ScriptedCommand& command) { return command.commandUpdateResult(c_value, 1); };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    QCOMPARE(order->state(), DOrder::State::Running);
}

void TstEnds::refusedRunIsOver()
{
    m_work->execute = [](ScriptedCommand&) { return false; };
    const auto order = m_bench->start(c_work);
    const QSignalSpy spy(order.get(), &DOrder::sigFinished);
    Workbench::settle();
    QCOMPARE(order->outcome(), DOrder::Outcome::Refused);
    QVERIFY(!order->endedOk());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(m_work->finished, 0);
}

void TstEnds::stopCommandEndsEveryRunThatNamesIt()
{
    const auto listening = m_bench->start(c_listen);
    const auto again = m_bench->start(c_listen);
    const auto scanning = m_bench->start(c_scan);
    Workbench::settle();
    const auto stop = m_bench->start(c_stop);
    Workbench::settle();
    QCOMPARE(listening->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(again->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(scanning->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(m_listen->finished, 2);
    QCOMPARE(stop->outcome(), DOrder::Outcome::Finished);
    QCOMPARE(stop->results(), success());
}

void TstEnds::stopCommandLeavesOtherRunsAlone()
{
    const auto watching = m_bench->start(c_watch);
    const auto working = m_bench->start(c_work);
    Workbench::settle();
    const auto stop = m_bench->start(c_stop);
    Workbench::settle();
    QCOMPARE(watching->state(), DOrder::State::Running);
    QCOMPARE(working->state(), DOrder::State::Running);
}

void TstEnds::stopCommandLeavesOtherDevicesAlone()
{
    auto* other = m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid());
    const auto listening = m_bench->host->createOrder(*other, c_listen);
    listening->start();
    Workbench::settle();
    const auto stop = m_bench->start(c_stop);
    Workbench::settle();
    QCOMPARE(listening->state(), DOrder::State::Running);
}

void TstEnds::stopCommandWithNothingToStopSucceeds()
{
    const auto stop = m_bench->start(c_stop);
    Workbench::settle();
    QCOMPARE(stop->results(), success());
}

void TstEnds::stopCommandMayBeSentByARunThatItStops()
{
    m_listen->execute = [](ScriptedCommand& command) { return command.ask(QStringLiteral("myself"), c_stop) != 0; };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    QCOMPARE(order->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(m_listen->replies.size(), 0);
}

void TstEnds::stopLetsTheCommandFinish()
{
    m_listen->finish = [](ScriptedCommand& command, bool& ok) {
        command.commandUpdateResult(c_value, 5);
        ok = false;
        return command.commandFinish(ok);
    };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    order->stop();
    QCOMPARE(order->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(order->results(), Values({{c_value, 5}}));
    QVERIFY(!order->endedOk());
}

void TstEnds::stopBeforeTheRunNeverRunsIt()
{
    const auto order = m_bench->start(c_work);
    const QSignalSpy spy(order.get(), &DOrder::sigFinished);
    order->stop();
    Workbench::settle();
    QCOMPARE(m_work->executed, 0);
    QCOMPARE(order->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(spy.size(), 1);
}

void TstEnds::stopOfAnEndedRunDoesNothing()
{
    m_work->execute = [](ScriptedCommand& command) {
        bool ok = true;
        return command.commandFinish(ok);
    };
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    order->stop();
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
    QCOMPARE(m_work->finished, 0);
}

void TstEnds::stopFromInsideTheEndDoesNothing()
{
    DOrder* running = nullptr;
    m_listen->finish = [&](ScriptedCommand& command, bool& ok) {
        if (m_listen->finished < 5) {
            running->stop(); // as an application does that hears of what the command does on its way out
        }
        command.commandUpdateResult(c_value, 5);
        return command.commandFinish(ok);
    };
    const auto order = m_bench->start(c_listen);
    running = order.get();
    Workbench::settle();
    order->stop();
    QCOMPARE(m_listen->finished, 1);
    QCOMPARE(order->results(), Values({{c_value, 5}}));
    QVERIFY(order->endedOk());
}

void TstEnds::commandThatDoesNotFinishWhenToldIsEndedAllTheSame()
{
    m_listen->finish = [](ScriptedCommand&, bool&) { return false; };
    const auto order = m_bench->start(c_listen);
    const QSignalSpy spy(order.get(), &DOrder::sigFinished);
    Workbench::settle();
    order->stop();
    Workbench::settle();
    QCOMPARE(order->outcome(), DOrder::Outcome::Stopped);
    QCOMPARE(spy.size(), 1);
    QVERIFY(!m_listen->last->commandUpdateResult(c_value, 1));
}

void TstEnds::endClosesTheSubscription()
{
    m_listen->execute = [](ScriptedCommand& command) { return command.subscribe(c_driver, c_stream) != 0; };
    const auto order = m_bench->start(c_listen);
    Workbench::settle();
    bool ok = true;
    m_listen->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(m_stream->finished, 1);
    QVERIFY(m_stream->last == nullptr);
}

void TstEnds::endIsAnnouncedOnce()
{
    m_work->execute = [](ScriptedCommand& command) {
        bool ok = true;
        command.commandUpdateResult(c_value, 1);
        return command.commandFinish(ok);
    };
    const auto order = m_bench->start(c_work, {}, 100);
    const QSignalSpy spy(order.get(), &DOrder::sigFinished);
    Workbench::settle();
    order->stop();
    m_bench->clock.advance(100);
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
}

void TstEnds::startingTwiceRunsOnce()
{
    const auto order = m_bench->start(c_work);
    order->start();
    Workbench::settle();
    order->start();
    Workbench::settle();
    QCOMPARE(m_work->executed, 1);
}

void TstEnds::commandWithoutAnOrderIsNotRun()
{
    ScriptedCommand command(m_work, {}, nullptr);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"work\" is not run: it has no order")));
    QVERIFY(!command.commandExecute());
    QCOMPARE(m_work->executed, 0);
}

void TstEnds::commandOfAnEndedOrderIsNotRun()
{
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    bool ok = true;
    m_work->last->commandFinish(ok);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"work\" is not run: its order has ended")));
    QVERIFY(!m_work->last->commandExecute());
    QCOMPARE(m_work->executed, 1);
}

void TstEnds::commandKnowsItsOrderWhileItIsLinked()
{
    ScriptedCommand command(m_work, {}, nullptr);
    QCOMPARE(command.getOrderId(), quint64(0));
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QVERIFY(order->orderId() != 0);
    QCOMPARE(m_work->last->getOrderId(), order->orderId());
}

void TstEnds::unknownCommandHasNoOrder()
{
    QVERIFY(m_bench->host->createOrder(*m_bench->device, QStringLiteral("fly")) == nullptr);
    QVERIFY(m_bench->host->createOrder(*m_bench->device, QString()) == nullptr);
}

QTEST_GUILESS_MAIN(TstEnds)
#include "tst_ends.moc"
