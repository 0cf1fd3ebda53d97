// The history with a million entries: a page of every filter beside the same statement asked of SQLite itself, storing
// beside the same insertion, and an export's memory.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <string>
#include <vector>

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include "filled_history.h"
#include "history/history_export.h"
#include "history/history_query.h"
#include "history/history_store.h"

namespace {

constexpr int c_entries = FilledHistory::c_million;
constexpr int c_few = 1000;
constexpr int c_page = 100;
constexpr qint64 c_usBetween = FilledHistory::c_usBetween;

FilledHistory& million()
{
    static FilledHistory filled(c_entries);
    return filled;
}

FilledHistory& thousand()
{
    static FilledHistory filled(c_few);
    return filled;
}
constexpr qint64 c_lengthUs = c_entries * c_usBetween;

/// The filters, by number: a bit each for time, wrench, program and status.
HistoryFilter filterOf(std::int64_t bits)
{
    HistoryFilter filter;
    if ((bits & 1) != 0) {
        filter.sinceUs = c_lengthUs / 2;
        filter.untilUs = c_lengthUs / 4 * 3;
    }
    if ((bits & 2) != 0) {
        filter.serialId = QStringLiteral("2211");
    }
    if ((bits & 4) != 0) {
        filter.program = 4;
    }
    if ((bits & 8) != 0) {
        filter.isGood = false;
    }
    return filter;
}

/// In the middle of what there is.
HistoryKey middle()
{
    return {c_lengthUs / 8 * 5, qint64(c_entries) / 8 * 5};
}

void page(benchmark::State& state)
{
    FilledHistory& filled = million();
    HistoryQuery query(filled.store.database(), filterOf(state.range(0)));
    QVector<HistoryRecord> records;
    for (auto _ : state) {
        if (query.page(middle(), c_page, &records)) {
            state.SkipWithError("no page");
            break;
        }
        benchmark::DoNotOptimize(records.data());
    }
    state.counters["entries"] = double(records.size());
}

void bind(sqlite3_stmt* statement, const char* place, std::int64_t value)
{
    const int index = sqlite3_bind_parameter_index(statement, place);
    if (index > 0) {
        sqlite3_bind_int64(statement, index, value);
    }
}

/// The same statement, prepared each time, as a program without Qt asks it: every column is read, and texts are taken.
void barePage(benchmark::State& state)
{
    FilledHistory& filled = million();
    const HistoryFilter filter = filterOf(state.range(0));
    const QByteArray text = HistoryQuery(filled.store.database(), filter).pageStatement(middle()).toUtf8();
    sqlite3* database = nullptr;
    sqlite3_open_v2(QFile::encodeName(filled.store.file()).constData(), &database, SQLITE_OPEN_READONLY, nullptr);
    std::int64_t rows = 0;
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database, text.constData(), -1, &statement, nullptr) != SQLITE_OK) {
            state.SkipWithError("no statement");
            break;
        }
        sqlite3_bind_text(statement, std::max(1, sqlite3_bind_parameter_index(statement, ":serial")), "2211", -1,
                          SQLITE_STATIC);
        bind(statement, ":program", 4);
        bind(statement, ":least", std::max(filter.sinceUs.value_or(0), middle().arrivedUs));
        bind(statement, ":end", filter.untilUs.value_or(INT64_MAX));
        bind(statement, ":key_us", middle().arrivedUs);
        bind(statement, ":key_id", middle().id);
        bind(statement, ":most", c_page);
        rows = 0;
        std::vector<std::vector<std::string>> taken;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            ++rows;
            std::vector<std::string> cells;
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                const auto* cell = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
                cells.emplace_back(cell == nullptr ? "" : cell);
            }
            taken.push_back(std::move(cells));
        }
        benchmark::DoNotOptimize(taken.data());
        sqlite3_finalize(statement);
    }
    sqlite3_close(database);
    state.counters["entries"] = double(rows);
}

void totals(benchmark::State& state)
{
    FilledHistory& filled = million();
    HistoryQuery query(filled.store.database(), filterOf(state.range(0)));
    HistoryTotals counted;
    for (auto _ : state) {
        if (query.totals({}, &counted)) {
            state.SkipWithError("no totals");
            break;
        }
    }
    state.counters["entries"] = double(counted.good + counted.notGood);
}

/// One result, on the disk when it is done, in a history that already holds so many.
void storeOne(benchmark::State& state)
{
    FilledHistory& filled = state.range(0) == c_few ? thousand() : million();
    static int i = c_entries;
    for (auto _ : state) {
        QVector<HistoryRecord> records{FilledHistory::recordOf(i)};
        if (filled.store.append(records)) {
            state.SkipWithError("not stored");
            break;
        }
        ++i;
    }
}

/// What a disk takes at the least: one append of a WAL frame's size, and its sync.
void bareSync(benchmark::State& state)
{
    const QTemporaryDir folder;
    const int file = open(QFile::encodeName(folder.filePath(QStringLiteral("file"))).constData(),
                          O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    const QByteArray frame(4096 + 24, 'x');
    for (auto _ : state) {
        if (write(file, frame.constData(), std::size_t(frame.size())) != frame.size() || fdatasync(file) != 0) {
            state.SkipWithError("not written");
            break;
        }
    }
    close(file);
}

/// All of a history into a file, page by page as `results --export` does; the memory is what it takes more at its most.
void exportAll(benchmark::State& state)
{
    FilledHistory& filled = million();
    const QTemporaryDir folder;
    const double before = residentBytes();
    double most = before;
    for (auto _ : state) {
        HistoryFilter filter;
        filter.untilUs = state.range(0) * c_usBetween;
        HistoryQuery query(filled.store.database(), filter);
        HistoryExport out(folder.filePath(QStringLiteral("out.csv")), HistoryExport::Format::Csv);
        bool isBroken = bool(out.begin());
        std::optional<HistoryKey> behind;
        QVector<HistoryRecord> records;
        do {
            isBroken = isBroken || query.page(behind, 500, &records) || out.write(records);
            if (!records.isEmpty()) {
                behind = HistoryKey{records.constLast().arrivedUs, records.constLast().id};
            }
            most = std::max(most, residentBytes());
        } while (!isBroken && !records.isEmpty());
        if (isBroken || out.commit()) {
            state.SkipWithError("not exported");
            break;
        }
    }
    state.counters["bytes"] = most - before;
    state.counters["ns_per_entry"] = benchmark::Counter(
        double(state.range(0)) * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void openToWrite(benchmark::State& state)
{
    FilledHistory& filled = million();
    for (auto _ : state) {
        HistoryStore store(QFileInfo(filled.store.file()).absolutePath());
        if (store.openToWrite()) {
            state.SkipWithError("not opened");
            break;
        }
    }
}

BENCHMARK(page)->Name("history/page")->DenseRange(0, 15)->UseRealTime();
BENCHMARK(barePage)->Name("history/bare_page")->DenseRange(0, 15)->UseRealTime();
BENCHMARK(totals)->Name("history/totals")->Arg(0)->Arg(6)->UseRealTime();
BENCHMARK(storeOne)->Name("history/store_one")->Arg(c_few)->Arg(c_entries)->Iterations(300)->UseRealTime();
BENCHMARK(bareSync)->Name("history/bare_sync")->Iterations(300)->UseRealTime();
BENCHMARK(exportAll)->Name("history/export")->Arg(c_entries / 10)->Arg(c_entries)->Iterations(1)->UseRealTime();
BENCHMARK(openToWrite)->Name("history/open_to_write")->Iterations(1)->UseRealTime();

} // namespace
