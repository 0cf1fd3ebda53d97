#pragma once

#include <QHash>
#include <QVector>

#include "../history/history_index.h"
#include "../history/history_record.h"

/// The entries that a table keeps, in pages as HistoryIndex numbers them. Of more pages than it may keep, the one that
/// was not asked for the longest goes.
class HistoryPages
{
public:
    static constexpr int c_mostPages = 40;

    void clear() { m_pages.clear(); }
    void put(int page, const QVector<HistoryRecord>& records);
    bool has(int page) const { return m_pages.contains(page); }
    /// Null: it is not kept. Valid until the next call of anything else.
    const HistoryRecord* at(qint64 number);
    /// An entry has come between; those behind it have the next number now.
    void insert(const HistoryIndex::Insertion& insertion, qint64 entriesBefore);
    int count() const { return m_pages.size(); }

    static int pageOf(qint64 number) { return int(number / HistoryIndex::c_page); }

private:
    struct Page
    {
        QVector<HistoryRecord> records;
        quint64 lastUse = 0;
    };

    QHash<int, Page> m_pages;
    quint64 m_uses = 0;
};
