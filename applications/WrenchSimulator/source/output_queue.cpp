#include "output_queue.h"

#include <algorithm>
#include <utility>

OutputQueue::OutputQueue(NoteSink note) : m_note(std::move(note)) {}

void OutputQueue::post(const QByteArray& bytes, const ChunkShape& shape, qint64 nowUs)
{
    if (m_heldLines > 0 && m_heldUntilUs <= nowUs) {
        release(m_heldUntilUs);
    }
    if (m_heldLines == 0) {
        m_heldUntilUs = nowUs + shape.glueWaitUs;
    }
    m_held += bytes;
    m_heldShape = shape;
    ++m_heldLines;
    if (m_heldLines >= shape.gluedLines || m_held.size() >= c_maxGluedBytes) {
        release(nowUs);
    }
}

std::optional<QByteArray> OutputQueue::takeChunk(qint64 nowUs)
{
    if (m_heldLines > 0 && m_heldUntilUs <= nowUs) {
        release(m_heldUntilUs);
    }
    if (m_chunks.empty() || m_chunks.front().dueUs > nowUs) {
        return std::nullopt;
    }
    if (m_droppedBytes > 0) {
        m_note(QStringLiteral("the line is read again: %1 bytes had been dropped").arg(m_droppedBytes));
        m_droppedBytes = 0;
    }
    QByteArray bytes = std::move(m_chunks.front().bytes);
    m_chunks.pop_front();
    m_bytes -= bytes.size();
    return bytes;
}

std::optional<qint64> OutputQueue::nextDueUs() const
{
    if (!m_chunks.empty()) {
        return m_chunks.front().dueUs;
    }
    return m_heldLines > 0 ? std::optional<qint64>(m_heldUntilUs) : std::nullopt;
}

void OutputQueue::clear()
{
    m_chunks.clear();
    m_bytes = 0;
    m_droppedBytes = 0;
    m_lastDueUs = c_longAgoUs;
    m_held.clear();
    m_heldLines = 0;
}

void OutputQueue::release(qint64 atUs)
{
    const bool isSplit = m_heldShape.pieceBytes > 0;
    const int step = isSplit ? m_heldShape.pieceBytes : m_held.size();
    for (int from = 0; from < m_held.size(); from += step) {
        append(std::max(atUs, m_lastDueUs + (isSplit ? m_heldShape.pieceGapUs : 0)), m_held.mid(from, step));
    }
    m_held.clear();
    m_heldLines = 0;
}

void OutputQueue::append(qint64 dueUs, const QByteArray& bytes)
{
    m_chunks.push_back({dueUs, bytes});
    m_lastDueUs = dueUs;
    m_bytes += bytes.size();
    if (m_bytes > c_maxBytes && m_droppedBytes == 0) {
        m_note(QStringLiteral("nobody reads the line: from now on the oldest of %1 waiting bytes are dropped")
                   .arg(m_bytes));
    }
    while (m_bytes > c_maxBytes) {
        m_droppedBytes += m_chunks.front().bytes.size();
        m_bytes -= m_chunks.front().bytes.size();
        m_chunks.pop_front();
    }
}
