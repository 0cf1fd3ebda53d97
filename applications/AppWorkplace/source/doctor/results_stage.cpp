#include "results_stage.h"

#include <lib_plugins_management/host/d_host.h>

#include "line_words.h"

namespace {

constexpr int c_configureLimitMs = 5000;
constexpr int c_answerLimitMs = 5000;
constexpr int c_millisecondsPerSecond = 1000;

const QString c_configureCommand = QStringLiteral("sendInitConfig");
const QString c_listenCommand = QStringLiteral("listenEventsData");

} // namespace

ResultsStage::ResultsStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("results"), tr("a tightening arrives as a result"),
                   bench.order.waitResultMs == 0
                       ? QString()
                       : tr("DT:1, SC:TL:2 and RE:1 to the wrench, which reports its results from now on, and DT:0, "
                            "which unlocks it; the lock is put back at the end")},
                  Problem::Kind::Device, bench)
{}

void ResultsStage::start()
{
    if (m_bench.order.waitResultMs == 0) {
        skip(tr("not asked for: with --wait-result 60 you are asked to tighten once"));
        return;
    }
    m_bench.lock.mayChange();
    m_bench.talk.forget();
    m_run = m_bench.host.createOrder(*m_bench.device, c_configureCommand);
    m_listener = m_bench.host.createOrder(*m_bench.device, c_listenCommand);
    if (m_run == nullptr || m_listener == nullptr) {
        failSetUp(tr("the device plugin lacks the command \"%1\" or \"%2\"").arg(c_configureCommand, c_listenCommand),
                  {}, tr("name another folder with --plugins"));
        return;
    }
    connect(m_run.get(), &DOrder::sigFinished, this, [this] {
        const std::unique_ptr<DOrder, void (*)(DOrder*)> ended(m_run.release(),
                                                               [](DOrder* order) { order->deleteLater(); });
        configured(*ended);
    });
    m_run->start(limitMs(c_configureLimitMs));
}

void ResultsStage::stop()
{
    m_hasEnded = true;
    for (std::unique_ptr<DOrder>* order : {&m_run, &m_listener}) {
        if (DOrder* const running = order->release()) { // it may be telling us of a result
            running->disconnect(this);
            running->stop();
            running->deleteLater();
        }
    }
    DoctorStage::stop();
}

void ResultsStage::configured(const DOrder& run)
{
    if (run.outcome() == DOrder::Outcome::Finished && run.results().value(QStringLiteral("cmd_success")).toBool()) {
        listen();
        return;
    }
    const QStringList& lines = m_bench.talk.lines();
    fail(tr("the wrench does not take its configuration"),
         lines.isEmpty() ? tr("it did not answer") : tr("the last that was said is \"%1\"").arg(lines.constLast()),
         tr("bring the wrench nearer and try again"));
}

// Before the wrench is unlocked: from then on it may tighten.
void ResultsStage::listen()
{
    connect(m_listener.get(), &DOrder::sigResultsPublished, this, [this](const QMap<QString, QVariant>& values) {
        if (!m_hasEnded && values.contains(QStringLiteral("eventData"))) {
            takeResult(values.value(QStringLiteral("eventData")).toMap());
        }
    });
    m_listener->start();
    unlock();
}

void ResultsStage::unlock()
{
    using namespace line_words;
    m_bench.talk.forget();
    m_bench.talk.ask(
        c_unlock, limitMs(c_answerLimitMs),
        [](const QString& line) { return line == c_unlocked || line.startsWith(c_refused); },
        [this](LineTalk::End end) {
            if (end == LineTalk::End::NotWritten) {
                failUnwritten();
            } else {
                askForTheLock(&ResultsStage::waitForResult);
            }
        });
}

/// A locked wrench does not tighten, whoever has locked it.
void ResultsStage::askForTheLock(void (ResultsStage::*whenUnlocked)())
{
    using namespace line_words;
    m_bench.talk.forget();
    m_bench.talk.ask(
        c_probe, limitMs(c_answerLimitMs),
        [](const QString& line) { return line == c_unlocked || line == c_locked || line.startsWith(c_refused); },
        [this, whenUnlocked](LineTalk::End end) {
            const QString answer = end == LineTalk::End::Answered ? m_bench.talk.lines().constLast() : QString();
            if (answer == c_unlocked) {
                (this->*whenUnlocked)();
            } else if (answer == c_locked) {
                fail(tr("the wrench is locked, and a locked wrench gives no result"),
                     tr("it was unlocked with DT:0 and says that it is locked all the same"),
                     tr("see who else locks it: another program, or a key on the wrench"));
            } else if (end == LineTalk::End::NotWritten) {
                failUnwritten();
            } else {
                fail(tr("the wrench does not tell its lock any more"),
                     answer.isEmpty() ? tr("it did not answer") : tr("the line said \"%1\"").arg(answer),
                     tr("bring the wrench nearer and try again"));
            }
        });
}

void ResultsStage::waitForResult()
{
    Q_EMIT sigNotice(tr("Tighten once now; a result is waited for %1 s.")
                         .arg(double(m_bench.order.waitResultMs) / c_millisecondsPerSecond));
    m_bench.talk.forget();
    m_bench.talk.ask(
        {}, m_bench.order.waitResultMs, [](const QString&) { return false; },
        [this](LineTalk::End) { askForTheLock(&ResultsStage::failWithoutResult); });
}

void ResultsStage::takeResult(const QVariantMap& eventData)
{
    stop();
    pass(tr("a result has come: torque %1, reading %2")
             .arg(eventData.value(QStringLiteral("convertedTorque")).toString(),
                  eventData.value(QStringLiteral("readingNumber")).toString()));
}

void ResultsStage::failWithoutResult()
{
    fail(tr("no result has come within %1 s").arg(double(m_bench.order.waitResultMs) / c_millisecondsPerSecond),
         tr("the wrench is unlocked and answers, and has told of no tightening"),
         tr("tighten once while it is waited for; give more time with --wait-result"));
}
