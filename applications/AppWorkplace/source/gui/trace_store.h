#pragma once

#include <deque>

#include "trace_entry.h"

/// Entries of a trace in bounds: when there are too many the oldest go, and are counted.
class TraceStore
{
public:
    static constexpr int c_mostEntries = 20000;
    static constexpr int c_mostBytes = 16 * 1024 * 1024; ///< of their texts

    void append(const TraceEntry& entry)
    {
        m_bytes += entry.text.size();
        m_entries.push_back(entry);
    }
    /// How many of the oldest are too many. The newest one stays, however long it is.
    int excess() const
    {
        int count = 0;
        qint64 bytes = m_bytes;
        while (size() - count > c_mostEntries || (bytes > c_mostBytes && size() - count > 1)) {
            bytes -= m_entries.at(std::size_t(count)).text.size();
            ++count;
        }
        return count;
    }
    void takeOldest(int count)
    {
        for (; count > 0; --count) {
            m_bytes -= m_entries.front().text.size();
            m_entries.pop_front();
            ++m_taken;
        }
    }

    const std::deque<TraceEntry>& entries() const { return m_entries; }
    int size() const { return int(m_entries.size()); }
    bool isEmpty() const { return m_entries.empty(); }
    /// How many were taken away. They are numbered one by one, so it is the number of the first that is there, too.
    qint64 taken() const { return m_taken; }
    const TraceEntry& numbered(qint64 number) const { return m_entries.at(std::size_t(number - m_taken)); }

private:
    std::deque<TraceEntry> m_entries;
    qint64 m_bytes = 0;
    qint64 m_taken = 0;
};
