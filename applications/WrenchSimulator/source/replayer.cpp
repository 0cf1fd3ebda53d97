#include "replayer.h"

#include <utility>

namespace {
constexpr int c_maxShownBytes = 200;
constexpr double c_usPerSecond = 1e6;

QString shown(const QByteArray& bytes)
{
    const QString text = QString::fromLatin1(TraceReader::escaped(bytes.left(c_maxShownBytes)));
    return bytes.size() > c_maxShownBytes ? text + QStringLiteral(" ...") : text;
}
} // namespace

Replayer::Replayer(TraceReader& trace, Pace pace, NoteSink note) : m_trace(trace), m_pace(pace), m_note(std::move(note))
{
    nextEntry();
}

void Replayer::receive(const QByteArray& bytes, qint64 nowUs)
{
    const int room = c_maxEarlyBytes - m_received.size();
    m_received += bytes.left(room);
    proceed(nowUs);
    if (bytes.size() > room) {
        differ(bytes.mid(room));
    }
}

void Replayer::setHeard(bool isHeard, qint64 nowUs)
{
    if (isHeard == m_isHeard) {
        return;
    }
    m_isHeard = isHeard;
    if (isHeard) {
        m_lastUs += nowUs - m_unheardSinceUs;
    } else {
        m_unheardSinceUs = nowUs;
    }
}

std::optional<QByteArray> Replayer::takeChunk(qint64 nowUs)
{
    const std::optional<qint64> dueUs = nextDueUs();
    if (!dueUs || *dueUs > nowUs) {
        return std::nullopt;
    }
    QByteArray chunk = m_entry.bytes;
    ++m_chunks;
    m_lastMomentUs = m_entry.momentUs;
    m_lastUs = *dueUs; // not now: a late turn of the event loop must not make the rest late
    nextEntry();
    proceed(nowUs);
    return chunk;
}

std::optional<qint64> Replayer::nextDueUs() const
{
    if (!m_hasEntry || m_entry.kind != TraceEntry::Kind::ToHost || !m_isHeard) {
        return std::nullopt;
    }
    return m_pace == Pace::Fast ? m_lastUs : m_lastUs + m_entry.momentUs - m_lastMomentUs;
}

QString Replayer::summary() const
{
    QString played =
        QStringLiteral("%1: played %2 chunks, took %3 frames, %4 different")
            .arg(m_trace.path(), QString::number(m_chunks), QString::number(m_frames), QString::number(m_differences));
    if (!m_hasEntry) {
        return played;
    }
    const QString waiting = m_entry.kind == TraceEntry::Kind::FromHost
                                ? QStringLiteral("%1; it ends before line %2, waiting for the host's \"%3\"")
                                : QStringLiteral("%1; it ends before line %2, with \"%3\" still to come");
    return waiting.arg(played, QString::number(m_entry.line), shown(m_entry.bytes));
}

/// Compares what the host has sent with what it sent in the trace, up to the next chunk that is to leave.
void Replayer::proceed(qint64 nowUs)
{
    while (m_hasEntry && m_entry.kind == TraceEntry::Kind::FromHost && takeFrame()) {
        ++m_frames;
        m_lastMomentUs = m_entry.momentUs;
        m_lastUs = nowUs;
        nextEntry();
    }
    if (!m_hasEntry && !m_received.isEmpty()) {
        differ(std::exchange(m_received, {}));
    }
}

/// False: the frame has not arrived as a whole.
bool Replayer::takeFrame()
{
    const QByteArray& recorded = m_entry.bytes;
    if (recorded.startsWith(m_received) && m_received.size() < recorded.size()) {
        return false;
    }
    if (m_received.startsWith(recorded)) {
        m_received.remove(0, recorded.size());
        return true;
    }
    const int size = recorded.endsWith('\n') ? m_received.indexOf('\n') + 1 : recorded.size();
    if (size == 0 || size > m_received.size()) {
        return false;
    }
    differ(m_received.left(size));
    m_received.remove(0, size);
    return true;
}

void Replayer::nextEntry()
{
    do {
        m_hasEntry = m_trace.next(&m_entry);
    } while (m_hasEntry && m_entry.kind == TraceEntry::Kind::Remark);
    if (!m_trace.error().isEmpty()) {
        m_note(m_trace.error() + QStringLiteral("; the replay ends here"));
    }
}

void Replayer::differ(const QByteArray& sent)
{
    if (++m_differences > 1) {
        return;
    }
    if (!m_hasEntry) {
        m_note(QStringLiteral("%1: the host sent \"%2\" behind the end of the trace; the line stays open, and "
                              "further differences are counted only")
                   .arg(m_trace.path(), shown(sent)));
        return;
    }
    if (m_entry.kind != TraceEntry::Kind::FromHost) {
        m_note(QStringLiteral("%1, line %2: the host is more than %3 bytes ahead of the trace; \"%4\" is dropped")
                   .arg(m_trace.path(), QString::number(m_entry.line), QString::number(c_maxEarlyBytes), shown(sent)));
        return;
    }
    const QByteArray& recorded = m_entry.bytes;
    int same = 0;
    while (same < qMin(sent.size(), recorded.size()) && sent.at(same) == recorded.at(same)) {
        ++same;
    }
    m_note(QStringLiteral("%1, line %2 (%3 s): the host sent \"%4\" where the trace has \"%5\", different from byte %6 "
                          "on; the replay goes on with it in its place, and further differences are counted only")
               .arg(m_trace.path(), QString::number(m_entry.line),
                    QString::number(double(m_entry.momentUs) / c_usPerSecond, 'f', 6), shown(sent), shown(recorded),
                    QString::number(same + 1)));
}
