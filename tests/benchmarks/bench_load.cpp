// Many devices in one process, each with a driver on a pseudo-terminal of its own, each with one tightening result a
// second: what a result costs the process, whether one is lost, and whether each device's come in their order.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "epoll_event_dispatcher.h"
#include "terminal_pair.h"
#include "workplace_fixture.h"

namespace {

constexpr std::chrono::seconds c_period(1);
constexpr int c_rounds = 5;
constexpr int c_openingLimitMs = 60000;
constexpr int c_lastArrivalMs = 2000;
constexpr double c_microsecondsPerSecond = 1e6;
constexpr double c_nanosecondsPerMicrosecond = 1e3;

/// Of this thread: the one that writes has its own.
double processorMicroseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * c_microsecondsPerSecond + double(time.tv_nsec) / c_nanosecondsPerMicrosecond;
}

/// One device that listens, and what has come of it.
struct Station
{
    TerminalPair terminal;
    std::unique_ptr<DOrder> order;
    int results = 0;
    int disordered = 0;
};

void allowDescriptors()
{
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

/// One line to each device a second, spread over it.
void writeLines(const std::vector<std::unique_ptr<Station>>& stations)
{
    auto at = std::chrono::steady_clock::now();
    for (int round = 1; round <= c_rounds; ++round) {
        for (const auto& station : stations) {
            const QByteArray line = "RE:F:12.05,0,0,90,0," + QByteArray::number(round) + ",0\r\n";
            if (write(station->terminal.master(), line.constData(), std::size_t(line.size())) != line.size()) {
                return;
            }
            at += std::chrono::duration_cast<std::chrono::nanoseconds>(c_period) / stations.size();
            std::this_thread::sleep_until(at);
        }
    }
}

void devices(benchmark::State& state)
{
    allowDescriptors();
    for (auto _ : state) {
        WorkplaceFixture workplace;
        std::vector<std::unique_ptr<Station>> stations;
        int open = 0;
        std::size_t arrived = 0;
        QEventLoop loop;
        const std::size_t wanted = std::size_t(state.range(0)) * c_rounds;
        QObject::connect(&workplace.host, &DHost::sigPropertyChanged, &loop,
                         [&](DAbstractPlugin*, const QString& name, const QVariant& value) {
                             if (name == QLatin1String("connected") && value.toBool() && ++open == state.range(0)) {
                                 loop.quit();
                             }
                         });
        for (int i = 0; i < state.range(0); ++i) {
            stations.push_back(std::make_unique<Station>());
            Station& station = *stations.back();
            workplace.addDevice(station.terminal.path());
            station.order = workplace.host.createOrder(*workplace.device, QStringLiteral("listenEventsData"));
            QObject::connect(station.order.get(), &DOrder::sigResultsPublished, &loop,
                             [&](const QMap<QString, QVariant>& values) {
                                 const QVariantMap record = values.value(QStringLiteral("eventData")).toMap();
                                 const int number = record.value(QStringLiteral("readingNumber")).toInt();
                                 station.disordered += number == ++station.results ? 0 : 1;
                                 if (++arrived == wanted) {
                                     loop.quit();
                                 }
                             });
            station.order->start();
        }
        QTimer::singleShot(c_openingLimitMs, &loop, &QEventLoop::quit);
        loop.exec();
        const double before = processorMicroseconds();
        std::thread writer([&stations] { writeLines(stations); });
        constexpr int c_writingMs = c_rounds * 1000;
        QTimer::singleShot(c_writingMs + c_lastArrivalMs, &loop, &QEventLoop::quit);
        loop.exec();
        const double spent = processorMicroseconds() - before;
        writer.join();
        int disordered = 0;
        for (const auto& station : stations) {
            disordered += station->disordered;
        }
        state.SetIterationTime(spent / c_microsecondsPerSecond);
        state.counters["us_per_result"] = spent / double(std::max<std::size_t>(arrived, 1));
        state.counters["lost"] = double(wanted) - double(arrived);
        state.counters["disordered"] = disordered;
    }
}

/// The same in a thread whose event loop waits with epoll.
void devicesOverEpoll(benchmark::State& state)
{
    const std::unique_ptr<QThread> thread(QThread::create([&state] { devices(state); }));
    thread->setEventDispatcher(new EpollEventDispatcher);
    thread->start();
    thread->wait();
}

/// The least that it costs to hear of so many terminals with the system call that Qt uses, too.
void barePollAndRead(benchmark::State& state)
{
    allowDescriptors();
    for (auto _ : state) {
        std::vector<std::unique_ptr<Station>> stations;
        std::vector<pollfd> readers;
        for (int i = 0; i < state.range(0); ++i) {
            stations.push_back(std::make_unique<Station>());
            const QByteArray path = stations.back()->terminal.path().toLocal8Bit();
            readers.push_back({open(path.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), POLLIN, 0});
        }
        const std::size_t wanted = stations.size() * c_rounds;
        std::size_t arrived = 0;
        const double before = processorMicroseconds();
        std::thread writer([&stations] { writeLines(stations); });
        while (arrived < wanted && poll(readers.data(), readers.size(), c_lastArrivalMs) > 0) {
            for (const pollfd& reader : readers) {
                char buffer[4096];
                if (reader.revents != 0) {
                    const ssize_t size = read(reader.fd, buffer, sizeof(buffer));
                    arrived += std::size_t(std::count(buffer, buffer + std::max<ssize_t>(size, 0), '\n'));
                }
            }
        }
        const double spent = processorMicroseconds() - before;
        writer.join();
        for (const pollfd& reader : readers) {
            close(reader.fd);
        }
        state.SetIterationTime(spent / c_microsecondsPerSecond);
        state.counters["us_per_result"] = spent / double(std::max<std::size_t>(arrived, 1));
    }
}

void forSoMany(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgsProduct({{1, 16, 64, 256}})->Iterations(1)->Repetitions(3)->UseManualTime();
}

BENCHMARK(barePollAndRead)->Name("load/bare_poll")->Apply(&forSoMany);
BENCHMARK(devices)->Name("load/devices")->Apply(&forSoMany);
BENCHMARK(devicesOverEpoll)->Name("load/devices_over_epoll")->Apply(&forSoMany);

} // namespace
