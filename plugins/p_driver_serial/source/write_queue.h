#pragma once

#include <QByteArray>
#include <QString>

#include <deque>
#include <functional>

#include <lib_utilities/clock.h>

/// What the line has been asked to do, in that order: frames to write, and to close the port between them.
/// It keeps the order and the limits; writing and answering is the line's.
class WriteQueue
{
public:
    using Id = quint64; ///< 0: none
    /// ok: the bytes have left. error: one sentence when not.
    using Done = std::function<void(bool ok, const QString& error)>;

    struct Entry
    {
        Id id = 0;
        QByteArray frame; ///< empty: close the port
        int limitMs = 0;
        Done done;
        Clock::TimerId limitTimer = 0;

        bool closesThePort() const { return frame.isEmpty(); }
    };

    /// onLimit: the entry's time is over; it is still in the queue. The clock outlives the queue.
    WriteQueue(Clock& clock, std::function<void(Id)> onLimit);
    ~WriteQueue();

    /// frame: not empty. limitMs: > 0, from now.
    Id addFrame(const QByteArray& frame, int limitMs, Done done);
    void addClosing();

    bool isEmpty() const { return m_entries.empty(); }
    const Entry& first() const { return m_entries.front(); }
    Id lastId() const { return m_lastId; }
    bool isFirst(Id id) const { return !isEmpty() && first().id == id; }
    Entry takeFirst();
    /// Takes it out from wherever it stands; an entry without id when it is not there.
    Entry take(Id id);
    /// Nobody waits for that frame any more.
    void forgetDone(Id id);

private:
    std::deque<Entry>::iterator find(Id id);

    Clock& m_clock;
    const std::function<void(Id)> m_onLimit;
    std::deque<Entry> m_entries;
    Id m_lastId = 0;
};
