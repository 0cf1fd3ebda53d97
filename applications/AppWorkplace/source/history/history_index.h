#pragma once

#include <QVector>

#include <optional>

#include "../services/problem.h"
#include "history_keys.h"
#include "history_query.h"

/// Numbers the entries that a filter lets through, the oldest has 0, and knows where each page of them begins; so any
/// of them is found at the cost of a page. Everything in one read transaction of the caller, who also tells what was
/// stored since the last one.
class HistoryIndex
{
public:
    static constexpr int c_page = 100;

    /// An entry that has come, and its number now.
    struct Insertion
    {
        qint64 number;
        HistoryRecord record;
    };

    HistoryIndex(HistoryDatabase& database, const HistoryFilter& filter);

    /// Begins anew with so many entries; nothing is known of its pages.
    std::optional<Problem> begin(qint64 entries);
    qint64 entries() const { return m_entries; }
    /// From the newest page on down it is known how they begin.
    bool isComplete() const { return m_lowest == 0; }
    bool knows(int page) const { return page >= m_lowest; }
    /// Finds out about some more pages.
    std::optional<Problem> extend(int pages);
    /// The entries of a known page, in their order.
    std::optional<Problem> read(int page, QVector<HistoryRecord>* records);

    /// Numbers what was stored meanwhile, all of it. Most of it comes behind what was there; what does not (a clock
    /// was set back) costs all that is behind it. In the order in which they may be inserted one after the other.
    std::optional<Problem> take(QVector<HistoryRecord> stored, QVector<Insertion>* insertions);

private:
    std::optional<Problem> takeBetween(const QVector<HistoryRecord>& records, QVector<Insertion>* insertions);
    int pages() const { return int((m_entries + c_page - 1) / c_page); }
    /// The page that an entry with that key is in or would be in.
    int pageOf(const HistoryKey& key) const;

    HistoryQuery m_query;
    HistoryKeys m_keys;
    qint64 m_entries = 0;
    int m_lowest = 0;             // pages from this one on are known
    QVector<HistoryKey> m_starts; // of each page its first entry
    std::optional<HistoryKey> m_last;
};
