#include "write_queue.h"

#include <algorithm>
#include <utility>

WriteQueue::WriteQueue(Clock& clock, std::function<void(Id)> onLimit) : m_clock(clock), m_onLimit(std::move(onLimit)) {}

WriteQueue::~WriteQueue()
{
    for (const Entry& entry : m_entries) {
        m_clock.cancel(entry.limitTimer);
    }
}

WriteQueue::Id WriteQueue::addFrame(const QByteArray& frame, int limitMs, Done done)
{
    const Id id = ++m_lastId;
    const Clock::TimerId limitTimer = m_clock.callAfter(limitMs, [this, id] { m_onLimit(id); });
    m_entries.push_back({id, frame, limitMs, std::move(done), limitTimer});
    return id;
}

void WriteQueue::addClosing()
{
    m_entries.push_back({++m_lastId, {}, 0, {}, 0});
}

WriteQueue::Entry WriteQueue::takeFirst()
{
    return take(first().id);
}

WriteQueue::Entry WriteQueue::take(Id id)
{
    const auto found = find(id);
    if (found == m_entries.end()) {
        return {};
    }
    Entry entry = std::move(*found);
    m_entries.erase(found);
    m_clock.cancel(entry.limitTimer);
    return entry;
}

void WriteQueue::forgetDone(Id id)
{
    const auto found = find(id);
    if (found != m_entries.end()) {
        found->done = {};
    }
}

std::deque<WriteQueue::Entry>::iterator WriteQueue::find(Id id)
{
    return std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& entry) { return entry.id == id; });
}
