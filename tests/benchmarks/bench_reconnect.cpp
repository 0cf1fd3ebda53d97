// A pulled adapter: from the hang-up to the message, and from the port's return to the wrench as it was, with a dongle
// that answers without delay; the latter beside the first set-up of the same session.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

#include "services/session.h"
#include "workplace_fixture.h"

namespace {

constexpr double c_nsPerMs = 1e6;
constexpr int c_limitMs = 30000;

void wait(const std::function<bool()>& condition)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > c_limitMs) {
            qFatal("the session does not come to where it should");
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, c_limitMs);
    }
}

/// A session that listens to a simulated wrench, whose adapter can be pulled.
class Bench
{
public:
    Bench()
    {
        m_simulator.start(QStringLiteral(SIMULATOR), {QStringLiteral("--console"), QStringLiteral("--link"), port(),
                                                      QStringLiteral("--link-delay"), QStringLiteral("0"),
                                                      QStringLiteral("--answer-delay"), QStringLiteral("0")});
        if (!m_simulator.waitForReadyRead()) {
            qFatal("the simulator does not start");
        }
        SessionOrder order;
        order.serialId = QStringLiteral("2210");
        order.program = 2;
        m_workplace = std::make_unique<WorkplaceFixture>(port());
        m_session = std::make_unique<Session>(
            LinkedDevice{m_workplace->host, m_workplace->clock, *m_workplace->device, *m_workplace->driver, port()},
            order);
        QObject::connect(m_session.get(), &Session::sigLink, m_session.get(),
                         [this](const LinkReport& report) { m_kind = report.kind; });
        bool isListening = false;
        QObject::connect(m_session.get(), &Session::sigStepStarted, m_session.get(),
                         [&](Session::Step step) { isListening = step == Session::Step::Listen; });
        QElapsedTimer elapsed;
        elapsed.start();
        m_session->start();
        wait([&] { return isListening; });
        setUpMs = double(elapsed.nsecsElapsed()) / c_nsPerMs;
    }
    ~Bench()
    {
        bool isOver = false;
        QObject::connect(m_session.get(), &Session::sigFinished, m_session.get(), [&] { isOver = true; });
        m_session->interrupt();
        wait([&] { return isOver; });
        m_simulator.closeWriteChannel();
        m_simulator.waitForFinished();
    }

    double unplug() { return until("unplug\n", LinkReport::Kind::Lost); }
    double replug() { return until("replug\n", LinkReport::Kind::Restored); }
    static void stayAway(int ms)
    {
        bool isOver = false;
        QTimer::singleShot(ms, [&] { isOver = true; });
        wait([&] { return isOver; });
    }

    double setUpMs = 0;

private:
    QString port() const { return m_folder.filePath(QStringLiteral("port")); }
    double until(const char* command, LinkReport::Kind kind)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        m_simulator.write(command);
        wait([&] { return m_kind == kind; });
        return double(elapsed.nsecsElapsed()) / c_nsPerMs;
    }

    QTemporaryDir m_folder;
    QProcess m_simulator;
    std::unique_ptr<WorkplaceFixture> m_workplace;
    std::unique_ptr<Session> m_session;
    LinkReport::Kind m_kind = LinkReport::Kind::Opened;
};

/// range(0): how long the adapter is away, in milliseconds.
void pulledAdapter(benchmark::State& state)
{
    Bench bench;
    double noticeMs = 0;
    double restoreMs = 0;
    double worstMs = 0;
    for (auto _ : state) {
        noticeMs += bench.unplug();
        Bench::stayAway(int(state.range(0)));
        const double ms = bench.replug();
        restoreMs += ms;
        worstMs = std::max(worstMs, ms);
    }
    state.counters["notice_ms"] = benchmark::Counter(noticeMs, benchmark::Counter::kAvgIterations);
    state.counters["restore_ms"] = benchmark::Counter(restoreMs, benchmark::Counter::kAvgIterations);
    state.counters["worst_restore_ms"] = worstMs;
    state.counters["set_up_ms"] = bench.setUpMs;
}
BENCHMARK(pulledAdapter)->Name("reconnect/pulled_adapter")->Arg(100)->Arg(1300)->Iterations(6)->UseRealTime();
BENCHMARK(pulledAdapter)->Name("reconnect/pulled_adapter")->Arg(9000)->Iterations(2)->UseRealTime();

} // namespace
