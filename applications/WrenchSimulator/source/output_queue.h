#pragma once

#include "note.h"

#include <QByteArray>

#include <deque>
#include <limits>
#include <optional>

/// How lines become chunks on their way out.
struct ChunkShape
{
    int pieceBytes = 0;    ///< > 0: a chunk leaves in pieces of at most so many bytes
    qint64 pieceGapUs = 0; ///< from one piece to the next
    int gluedLines = 1;    ///< so many lines leave as one chunk ...
    qint64 glueWaitUs = 0; ///< ... or fewer, when the first of them has waited so long
};

/// What has been said and has not left yet, in order, each chunk with the moment from which it may leave. Bounded: the
/// oldest chunks are dropped when nobody takes them, and the note says so.
class OutputQueue
{
public:
    static constexpr int c_maxBytes = 1024 * 1024;
    static constexpr int c_maxGluedBytes = 64 * 1024; ///< what is glued leaves then, however few its lines

    explicit OutputQueue(NoteSink note);

    /// bytes: a line with its end, or what has none. nowUs never goes back from one call to the next.
    void post(const QByteArray& bytes, const ChunkShape& shape, qint64 nowUs);

    /// The next chunk that may leave, if there is one. Each is meant for one write of its own.
    std::optional<QByteArray> takeChunk(qint64 nowUs);

    /// When takeChunk() will next have something; nothing while the queue is empty.
    std::optional<qint64> nextDueUs() const;

    void clear();

private:
    static constexpr qint64 c_longAgoUs = std::numeric_limits<qint64>::min() / 2;

    struct Chunk
    {
        qint64 dueUs;
        QByteArray bytes;
    };

    void release(qint64 atUs);
    void append(qint64 dueUs, const QByteArray& bytes);

    NoteSink m_note;
    std::deque<Chunk> m_chunks;
    int m_bytes = 0;                  ///< in m_chunks
    qint64 m_droppedBytes = 0;        ///< since the line was last read
    qint64 m_lastDueUs = c_longAgoUs; ///< nothing overtakes what was said before

    QByteArray m_held; ///< lines being glued
    int m_heldLines = 0;
    qint64 m_heldUntilUs = 0;
    ChunkShape m_heldShape;
};
