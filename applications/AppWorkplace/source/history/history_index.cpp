#include "history_index.h"

#include <algorithm>

namespace {

HistoryKey keyOf(const HistoryRecord& record)
{
    return {record.arrivedUs, record.id};
}

bool isBefore(const HistoryKey& a, const HistoryKey& b)
{
    return a.arrivedUs != b.arrivedUs ? a.arrivedUs < b.arrivedUs : a.id < b.id;
}

} // namespace

HistoryIndex::HistoryIndex(HistoryDatabase& database, const HistoryFilter& filter)
    : m_query(database, filter), m_keys(database, filter)
{}

std::optional<Problem> HistoryIndex::begin(qint64 entries)
{
    m_entries = entries;
    m_starts = QVector<HistoryKey>(pages());
    m_lowest = pages();
    return m_keys.before(std::nullopt, 1, &m_last);
}

std::optional<Problem> HistoryIndex::extend(int pages)
{
    for (int i = 0; i < pages && m_lowest > 0; ++i) {
        const bool isNewest = m_lowest == m_starts.size();
        const int inNewest = int(m_entries - qint64(c_page) * (m_lowest - 1));
        std::optional<HistoryKey> start;
        if (std::optional<Problem> problem = isNewest ? m_keys.before(std::nullopt, inNewest, &start)
                                                      : m_keys.before(m_starts.at(m_lowest), c_page, &start)) {
            return problem;
        }
        --m_lowest;
        m_starts[m_lowest] = start.value_or(HistoryKey{});
    }
    return std::nullopt;
}

std::optional<Problem> HistoryIndex::read(int page, QVector<HistoryRecord>* records)
{
    const HistoryKey& start = m_starts.at(page);
    return m_query.page(HistoryKey{start.arrivedUs, start.id - 1}, c_page, records);
}

std::optional<Problem> HistoryIndex::take(QVector<HistoryRecord> stored, QVector<Insertion>* insertions)
{
    insertions->clear();
    std::sort(stored.begin(), stored.end(),
              [](const HistoryRecord& a, const HistoryRecord& b) { return isBefore(keyOf(a), keyOf(b)); });
    const auto behind = std::find_if(stored.cbegin(), stored.cend(), [this](const HistoryRecord& record) {
        return !m_last || isBefore(*m_last, keyOf(record));
    });
    const QVector<HistoryRecord> between = stored.mid(0, int(behind - stored.cbegin()));
    const QVector<HistoryRecord> appended = stored.mid(between.size());
    if (!between.isEmpty()) {
        if (std::optional<Problem> problem = takeBetween(between, insertions)) {
            return problem;
        }
    }
    for (const HistoryRecord& record : appended) {
        if (m_entries % c_page == 0) {
            m_starts.append(keyOf(record));
        }
        m_last = keyOf(record);
        insertions->append({m_entries++, record});
    }
    return std::nullopt;
}

// What is appended is in the file already, and is not in the count yet.
std::optional<Problem> HistoryIndex::takeBetween(const QVector<HistoryRecord>& records, QVector<Insertion>* insertions)
{
    while (!isComplete()) {
        if (std::optional<Problem> problem = extend(m_lowest)) {
            return problem;
        }
    }
    int page = pageOf(keyOf(records.constFirst()));
    if (isBefore(keyOf(records.constFirst()), m_starts.at(page))) {
        m_starts[page] = keyOf(records.constFirst());
    }
    m_entries += records.size();
    m_starts.resize(pages());
    for (++page; page < m_starts.size(); ++page) {
        std::optional<HistoryKey> start;
        if (std::optional<Problem> problem = m_keys.behind(m_starts.at(page - 1), c_page, &start)) {
            return problem;
        }
        m_starts[page] = start.value_or(HistoryKey{});
    }
    QVector<HistoryRecord> around;
    for (const HistoryRecord& record : records) {
        const int at = pageOf(keyOf(record));
        if (std::optional<Problem> problem = read(at, &around)) {
            return problem;
        }
        const auto found = std::find_if(around.cbegin(), around.cend(),
                                        [&record](const HistoryRecord& each) { return each.id == record.id; });
        insertions->append({qint64(c_page) * at + (found - around.cbegin()), record});
    }
    return std::nullopt;
}

int HistoryIndex::pageOf(const HistoryKey& key) const
{
    const auto above = std::upper_bound(m_starts.cbegin(), m_starts.cend(), key, isBefore);
    return std::max(0, int(above - m_starts.cbegin()) - 1);
}
