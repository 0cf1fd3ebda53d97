// What else somebody would write to make records of the same lines, in chunks of 4 KiB: with views by hand and no
// record at all, with Qt's cursor and split, with QIODevice::readLine and split, and Qt Positioning's source on NMEA
// lines of the same length. Python and Node stand in scripts beside this file.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QBuffer>
#include <QByteArrayList>
#include <QStringList>
#include <QTime>
#include <QVariantMap>

#include <array>
#include <cstring>
#include <numeric>
#include <string>
#include <string_view>

#ifdef HAS_POSITIONING
#include <QNmeaPositionInfoSource>
#endif

#include "result_line.h"

namespace {

constexpr int c_chunkSize = 4096;
constexpr int c_fields = 7;
constexpr int c_program = 3;
#ifdef HAS_POSITIONING
constexpr int c_positions = 4096; // as many different ones as the chunks take
#endif
constexpr std::string_view c_mark = "RE:F:";

/// Lines of one length again and again, in chunks whose borders meet a line at every place.
class Chunks
{
public:
    explicit Chunks(const QByteArrayList& lines)
    {
        for (int i = 0; i < c_chunkSize; ++i) {
            m_stream += lines.at(i % lines.size());
        }
    }

    QByteArray next()
    {
        if (m_offset == m_stream.size()) {
            m_offset = 0;
        }
        const QByteArray chunk(m_stream.constData() + m_offset, c_chunkSize);
        m_offset += c_chunkSize;
        return chunk;
    }

private:
    QByteArray m_stream;
    int m_offset = 0;
};

void report(benchmark::State& state, qint64 lines)
{
    state.counters["ns_per_line"] =
        benchmark::Counter(double(lines) / 1e9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

QVariantMap recordOf(const QStringList& fields, int number)
{
    return {{QStringLiteral("convertedTorque"), fields.at(0)},
            {QStringLiteral("direction"), fields.at(1)},
            {QStringLiteral("torqueStatus"), fields.at(2)},
            {QStringLiteral("snugTorqueAngle"), fields.at(3)},
            {QStringLiteral("angleStatus"), fields.at(4)},
            {QStringLiteral("readingNumber"), fields.at(5)},
            {QStringLiteral("readingStatus"), fields.at(6)},
            {QStringLiteral("eventCountNo"), number},
            {QStringLiteral("progId"), c_program}};
}

/// The field's views are all there is; nobody keeps them.
void views(benchmark::State& state)
{
    Chunks chunks({QByteArray(c_resultLine)});
    std::string rest;
    qint64 lines = 0;
    for (auto _ : state) {
        const QByteArray chunk = chunks.next();
        rest.append(chunk.constData(), std::size_t(chunk.size()));
        std::size_t begin = 0;
        for (std::size_t end = rest.find("\r\n"); end != std::string::npos; end = rest.find("\r\n", begin)) {
            std::string_view line = std::string_view(rest).substr(begin, end - begin);
            begin = end + 2;
            if (line.substr(0, c_mark.size()) != c_mark) {
                continue;
            }
            line.remove_prefix(c_mark.size());
            std::array<std::string_view, c_fields> fields;
            for (std::string_view& field : fields) {
                const std::size_t comma = line.find(',');
                field = line.substr(0, comma);
                line.remove_prefix(std::min(line.size(), field.size() + 1));
            }
            benchmark::DoNotOptimize(fields);
            ++lines;
        }
        rest.erase(0, begin);
    }
    report(state, lines);
}

void cursorAndSplit(benchmark::State& state)
{
    Chunks chunks({QByteArray(c_resultLine)});
    QString rest;
    qint64 lines = 0;
    int number = 0;
    for (auto _ : state) {
        rest += QString::fromUtf8(chunks.next());
        ++number;
        int begin = 0;
        for (int end = rest.indexOf(QLatin1String("\r\n")); end >= 0;
             end = rest.indexOf(QLatin1String("\r\n"), begin)) {
            const QString line = rest.mid(begin, end - begin).trimmed();
            begin = end + 2;
            if (line.startsWith(QLatin1String("RE:F:"))) {
                const QVariantMap record = recordOf(line.mid(int(c_mark.size())).split(QLatin1Char(',')), number);
                benchmark::DoNotOptimize(&record);
                ++lines;
            }
        }
        rest.remove(0, begin);
    }
    report(state, lines);
}

void readLineAndSplit(benchmark::State& state)
{
    Chunks chunks({QByteArray(c_resultLine)});
    QBuffer device;
    device.open(QIODevice::ReadWrite);
    qint64 lines = 0;
    int number = 0;
    for (auto _ : state) {
        const QByteArray rest = device.readAll(); // a line that is not whole yet
        device.buffer() = rest + chunks.next();
        device.seek(0);
        ++number;
        while (device.canReadLine()) {
            const QString line = QString::fromUtf8(device.readLine()).trimmed();
            if (line.startsWith(QLatin1String("RE:F:"))) {
                const QVariantMap record = recordOf(line.mid(int(c_mark.size())).split(QLatin1Char(',')), number);
                benchmark::DoNotOptimize(&record);
                ++lines;
            }
        }
    }
    report(state, lines);
}

#ifdef HAS_POSITIONING
/// What has arrived at a port.
class Feed : public QIODevice
{
public:
    Feed() { open(ReadOnly); }
    void add(const QByteArray& bytes)
    {
        m_bytes += bytes;
        Q_EMIT readyRead();
    }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_bytes.size() + QIODevice::bytesAvailable(); }
    bool canReadLine() const override { return m_bytes.contains('\n') || QIODevice::canReadLine(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const int size = int(std::min<qint64>(maxSize, m_bytes.size()));
        std::memcpy(data, m_bytes.constData(), std::size_t(size));
        m_bytes.remove(0, size);
        return size;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
};

/// Positions a second apart, each line as long as a result's.
QByteArrayList positionLines()
{
    QByteArrayList lines;
    for (int i = 0; i < c_positions; ++i) {
        const QTime time = QTime(0, 0).addSecs(i);
        QByteArray text =
            "GPRMC," + time.toString(QStringLiteral("hhmmss")).toLatin1() + ",A,4916.,N,12311,W,,,191194,";
        const char sum = std::accumulate(text.cbegin(), text.cend(), '\0', [](char a, char b) { return char(a ^ b); });
        lines.append('$' + text + '*' + QByteArray(1, sum).toHex().toUpper() + "\r\n");
    }
    return lines;
}

void positioning(benchmark::State& state)
{
    const QByteArrayList positionList = positionLines();
    if (positionList.constFirst().size() != int(sizeof(c_resultLine)) - 1) {
        state.SkipWithError("lines of one length are compared");
        return;
    }
    Chunks chunks(positionList);
    Feed feed;
    qputenv("QT_NMEA_PUSH_DELAY", "-1"); // each line is told at once, not together with what may follow
    QNmeaPositionInfoSource source(QNmeaPositionInfoSource::RealTimeMode);
    source.setDevice(&feed);
    qint64 positions = 0;
    QObject::connect(&source, &QGeoPositionInfoSource::positionUpdated, [&positions] { ++positions; });
    source.startUpdates();
    qint64 lines = 0;
    for (auto _ : state) {
        const QByteArray chunk = chunks.next();
        lines += chunk.count('\n');
        feed.add(chunk);
    }
    if (positions == 0) {
        state.SkipWithError("no position was told");
    }
    state.counters["told"] = double(positions) / double(lines);
    report(state, lines);
}
BENCHMARK(positioning)->Name("listener/qt_positioning");
#endif

BENCHMARK(views)->Name("listener/views_by_hand");
BENCHMARK(cursorAndSplit)->Name("listener/cursor_and_split");
BENCHMARK(readLineAndSplit)->Name("listener/read_line_and_split");

} // namespace
