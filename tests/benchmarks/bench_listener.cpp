// Lines of tightening results through the listener's delegate, by the size of the chunks in which they arrive, beside
// the least that a record costs: a nine-entry map made from fields that were cut before. Other ways to the same record
// from the same bytes: bench_listener_rivals.cpp.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QStringList>

#include <lib_plugins_management/host/i_order.h>

#include "allocation_counter.h"
#include "d_cmd_listen.h"
#include "p_device_haitor.h"
#include "result_line.h"

namespace {

const QByteArray c_line(c_resultLine);
constexpr qint64 c_bytesPerIteration = 1 << 20; // at least: small chunks are fed until so much has gone through
constexpr qint64 c_bytesAtATime = 1 << 14;      // made ready while the clock stands still, and still in the cache then

/// Runs the command and counts what it publishes.
class CountingOrder : public QObject, public IOrder
{
public:
    quint64 orderId() const override { return 1; }
    bool acceptsRun() const override { return true; }
    quint64 addInstruction(const DInstruction&) override { return 1; }
    bool stopInstruction(quint64) override { return true; }
    void resultsPublished(const QMap<QString, QVariant>& values) override
    {
        ++results;
        benchmark::DoNotOptimize(&values);
    }
    void runFinished(bool) override {}

    qint64 results = 0;
};

void listenerByChunk(benchmark::State& state)
{
    const int chunkSize = int(state.range(0));
    const qint64 chunks = std::max<qint64>(1, c_bytesPerIteration / chunkSize);
    // As many different chunks as it takes for the lines to meet the chunk's border at every place.
    QByteArray stream;
    while (stream.size() < chunkSize * c_line.size() && stream.size() < 4 * (1 << 20) + chunkSize) {
        stream += c_line;
    }
    PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
    DCmdListen command({}, &plugin);
    CountingOrder order;
    command.linkWithItsOrder(&order);
    command.commandExecute();

    const qint64 chunksAtATime = std::max<qint64>(1, c_bytesAtATime / chunkSize);
    int number = 0;
    qsizetype offset = 0;
    std::int64_t allocationsOfListening = 0;
    QVector<QMap<QString, QVariant>> replies;
    replies.reserve(int(chunksAtATime));
    for (auto _ : state) {
        for (qint64 done = 0; done < chunks; done += chunksAtATime) {
            state.PauseTiming();
            replies.clear();
            for (qint64 i = 0; i < chunksAtATime; ++i) {
                if (offset + chunkSize > stream.size()) {
                    offset = (offset + chunkSize) % c_line.size() == 0 ? 0 : offset % c_line.size();
                    offset = std::min<qsizetype>(offset, stream.size() - chunkSize);
                }
                replies.append({{QStringLiteral("frame"), QByteArray(stream.constData() + offset, chunkSize)},
                                {QStringLiteral("number"), number = (number + 1) & 0xffffff}});
                offset += chunkSize;
            }
            const std::int64_t before = allocations();
            state.ResumeTiming();
            for (const QMap<QString, QVariant>& reply : qAsConst(replies)) {
                command.setReply(1, reply);
            }
            allocationsOfListening += allocations() - before;
        }
    }
    const auto lines = double(order.results);
    state.counters["ns_per_line"] =
        benchmark::Counter(lines / 1e9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["allocations_per_line"] = double(allocationsOfListening) / lines;
    command.linkWithItsOrder(nullptr);
}

void plainMap(benchmark::State& state)
{
    const QStringList fields = QString::fromUtf8(c_line.mid(5).trimmed()).split(QLatin1Char(','));
    const int count = 7;
    const int program = 3;
    qint64 lines = 0;
    const std::int64_t allocationsBefore = allocations();
    for (auto _ : state) {
        QMap<QString, QVariant> record;
        record.insert(QStringLiteral("convertedTorque"), fields.at(0));
        record.insert(QStringLiteral("direction"), fields.at(1));
        record.insert(QStringLiteral("torqueStatus"), fields.at(2));
        record.insert(QStringLiteral("snugTorqueAngle"), fields.at(3));
        record.insert(QStringLiteral("angleStatus"), fields.at(4));
        record.insert(QStringLiteral("readingNumber"), fields.at(5));
        record.insert(QStringLiteral("readingStatus"), fields.at(6));
        record.insert(QStringLiteral("eventCountNo"), count);
        record.insert(QStringLiteral("progId"), program);
        benchmark::DoNotOptimize(&record);
        ++lines;
    }
    state.counters["ns_per_line"] =
        benchmark::Counter(double(lines) / 1e9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["allocations_per_line"] = double(allocations() - allocationsBefore) / double(lines);
}

BENCHMARK(plainMap)->Name("listener/plain_map");
BENCHMARK(listenerByChunk)
    ->Name("listener/chunk")
    ->Arg(64)
    ->Arg(512)
    ->Arg(4 << 10)
    ->Arg(64 << 10)
    ->Arg(1 << 20)
    ->Arg(16 << 20);

} // namespace
