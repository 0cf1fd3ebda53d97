#pragma once

#include "note.h"
#include "trace_reader.h"

#include <QByteArray>

#include <optional>

/// Plays the dongle's side of a trace: bytes of the host in, the recorded chunks out, under a time that is passed in.
///
/// - A chunk leaves once all bytes that the host had sent before it in the trace have arrived: at the recorded pace as
///   long after the entry before it as then, at the fast one at once.
/// - The host is compared frame by frame. A frame that differs stands for the recorded one, and the replay goes on; the
///   first one is told with both texts and its place, all of them are counted. So is what the host sends beyond the
///   trace. What comes earlier than in the trace waits for its place.
/// - While nobody hears the line the trace stands still.
///
/// Times are microseconds of any clock that never goes back. One thread. Memory is bounded: the trace is read as it is
/// played.
class Replayer
{
public:
    enum class Pace { Recorded, Fast };

    /// What the host may be ahead of the trace; more is dropped and counts as a difference.
    static constexpr int c_maxEarlyBytes = 64 * 1024;

    /// trace: opened, and outlives the replayer.
    Replayer(TraceReader& trace, Pace pace, NoteSink note);

    /// What has come over the line.
    void receive(const QByteArray& bytes, qint64 nowUs);
    /// Whether anybody has the line open. Nobody has, to begin with.
    void setHeard(bool isHeard, qint64 nowUs);

    /// The next chunk that may leave, if there is one; each is meant for one write of its own.
    std::optional<QByteArray> takeChunk(qint64 nowUs);
    /// When takeChunk() will next have something, if ever without new input.
    std::optional<qint64> nextDueUs() const;

    /// All of the trace has been played.
    bool isOver() const { return !m_hasEntry; }
    bool hasDifferences() const { return m_differences > 0; }
    /// What was played, what differed, and what it waits for.
    QString summary() const;

private:
    void proceed(qint64 nowUs);
    bool takeFrame();
    void nextEntry();
    void differ(const QByteArray& sent);

    TraceReader& m_trace;
    const Pace m_pace;
    NoteSink m_note;

    TraceEntry m_entry; ///< the next one to be played
    bool m_hasEntry = false;
    QByteArray m_received; ///< of the host, and not yet compared
    bool m_isHeard = false;
    qint64 m_unheardSinceUs = 0;
    qint64 m_lastMomentUs = 0; ///< of the entry played last, in the trace ...
    qint64 m_lastUs = 0;       ///< ... and in this replay
    qint64 m_chunks = 0;
    qint64 m_frames = 0;
    qint64 m_differences = 0;
};
