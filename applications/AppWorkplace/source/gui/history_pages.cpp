#include "history_pages.h"

#include <algorithm>

void HistoryPages::put(int page, const QVector<HistoryRecord>& records)
{
    m_pages.insert(page, {records, ++m_uses});
    while (m_pages.size() > c_mostPages) {
        m_pages.erase(std::min_element(m_pages.begin(), m_pages.end(),
                                       [](const Page& a, const Page& b) { return a.lastUse < b.lastUse; }));
    }
}

const HistoryRecord* HistoryPages::at(qint64 number)
{
    const auto page = m_pages.find(pageOf(number));
    if (page == m_pages.end()) {
        return nullptr;
    }
    page->lastUse = ++m_uses;
    const int place = int(number % HistoryIndex::c_page);
    return place < page->records.size() ? &page->records.at(place) : nullptr;
}

// What is kept behind it without a break moves on by one place; what is kept behind a break would have to be read.
void HistoryPages::insert(const HistoryIndex::Insertion& insertion, qint64 entriesBefore)
{
    HistoryRecord moved = insertion.record;
    const int first = pageOf(insertion.number);
    const int last = pageOf(entriesBefore);
    int place = int(insertion.number % HistoryIndex::c_page);
    int page = first;
    for (; page <= last; ++page, place = 0) {
        auto kept = m_pages.find(page);
        if (kept == m_pages.end()) {
            const bool isNew = place == 0 && qint64(page) * HistoryIndex::c_page == entriesBefore;
            if (!isNew) {
                break;
            }
            put(page, {});
            kept = m_pages.find(page);
        }
        kept->records.insert(std::min(place, kept->records.size()), moved);
        if (kept->records.size() <= HistoryIndex::c_page) {
            return;
        }
        moved = kept->records.takeLast();
    }
    for (auto kept = m_pages.begin(); kept != m_pages.end();) {
        kept = kept.key() >= page ? m_pages.erase(kept) : std::next(kept);
    }
}
