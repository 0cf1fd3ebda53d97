// From the last byte of a result line written on the terminal to the call of a listening command's delegate, through
// driver, router and order, beside a bare poll and read of the same kind of terminal. A thread of its own writes a line
// every 200 microseconds.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "probe_plugin.h"
#include "terminal_pair.h"
#include "workplace_fixture.h"

namespace {

using Time = std::chrono::steady_clock;

constexpr char c_line[] = "RE:F:12.05,0,0,90,0,1234,0,extra,fields\r\n";
constexpr std::size_t c_lineSize = sizeof(c_line) - 1;
constexpr int c_lines = 2000;
constexpr std::chrono::microseconds c_pause(200);

/// Writes the lines one by one, each when the one before has arrived, and keeps how long each took.
class Writer
{
public:
    explicit Writer(int master) : m_thread([this, master] { run(master); }) {}
    ~Writer() { wait(); }

    void wait()
    {
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }

    void arrived() { m_arrivedAt.store(Time::now().time_since_epoch().count(), std::memory_order_release); }
    bool isDone() const { return m_isDone.load(std::memory_order_acquire); }
    const std::vector<double>& microseconds() const { return m_microseconds; }

private:
    void run(int master)
    {
        m_microseconds.reserve(c_lines);
        for (int i = 0; i < c_lines; ++i) {
            std::this_thread::sleep_for(c_pause);
            m_arrivedAt.store(0, std::memory_order_release);
            const auto written = Time::now().time_since_epoch().count();
            if (write(master, c_line, c_lineSize) != ssize_t(c_lineSize)) {
                break;
            }
            Time::rep arrivedAt = 0;
            while ((arrivedAt = m_arrivedAt.load(std::memory_order_acquire)) == 0) {
                std::this_thread::yield();
            }
            m_microseconds.push_back(
                std::chrono::duration<double, std::micro>(Time::duration(arrivedAt - written)).count());
        }
        m_isDone.store(true, std::memory_order_release);
    }

    std::atomic<Time::rep> m_arrivedAt{0};
    std::atomic<bool> m_isDone{false};
    std::vector<double> m_microseconds;
    std::thread m_thread;
};

void report(benchmark::State& state, std::vector<double> microseconds)
{
    std::sort(microseconds.begin(), microseconds.end());
    const double median = microseconds.at(microseconds.size() / 2);
    state.SetIterationTime(median * 1e-6);
    state.counters["p50_us"] = median;
    state.counters["p90_us"] = microseconds.at(microseconds.size() * 9 / 10);
}

void barePollAndRead(benchmark::State& state)
{
    for (auto _ : state) {
        const TerminalPair terminal;
        const int reader = open(terminal.path().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        Writer writer(terminal.master());
        char buffer[4096];
        std::size_t received = 0;
        while (!writer.isDone()) {
            pollfd watched{reader, POLLIN, 0};
            if (poll(&watched, 1, 10) > 0) {
                received += std::size_t(std::max<ssize_t>(0, read(reader, buffer, sizeof(buffer))));
                if (received >= c_lineSize) {
                    received -= c_lineSize;
                    writer.arrived();
                }
            }
        }
        close(reader);
        writer.wait();
        report(state, writer.microseconds());
    }
}

void throughTheWorkplace(benchmark::State& state)
{
    for (auto _ : state) {
        const TerminalPair terminal;
        WorkplaceFixture workplace(terminal.path());
        const ProbePlugin root{QUuid()};
        DAbstractPlugin* probe = workplace.host.createInstance(root, QUuid::createUuid());
        workplace.host.linkDriver(*probe, *workplace.driver);
        const auto order = workplace.host.createOrder(*probe, QStringLiteral("probe"));
        QEventLoop opening;
        QObject::connect(&workplace.host, &DHost::sigPropertyChanged, &opening, [&workplace, &opening] {
            if (workplace.driver->getProperty(QStringLiteral("connected"), QVariant(false)).toBool()) {
                opening.quit();
            }
        });
        order->start();
        opening.exec();
        Writer writer(terminal.master());
        int received = 0;
        int lines = 0;
        QEventLoop loop;
        ProbeCommand::onChunk() = [&](const QByteArray& chunk) {
            received += chunk.size();
            if (received >= int(c_lineSize)) {
                received -= int(c_lineSize);
                writer.arrived();
                if (++lines == c_lines) {
                    loop.quit();
                }
            }
        };
        loop.exec();
        writer.wait();
        report(state, writer.microseconds());
    }
}

BENCHMARK(barePollAndRead)->Name("latency/bare_poll_and_read")->Iterations(1)->UseManualTime();
BENCHMARK(throughTheWorkplace)->Name("latency/delegate_called")->Iterations(1)->UseManualTime();

} // namespace
