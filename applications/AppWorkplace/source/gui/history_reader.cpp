#include "history_reader.h"

#include <QMetaObject>

#include "../history/history_database.h"

namespace {

// Of an index, in one turn of the event loop; between two of them pages are read.
constexpr int c_pagesATurn = 100;
// Of what is stored meanwhile. So much at once is no session's; the list begins anew.
constexpr int c_mostStored = 2000;

/// Of the first step that has one; those behind it are not taken.
template <typename... Steps>
std::optional<Problem> firstProblem(const Steps&... steps)
{
    std::optional<Problem> problem;
    ((problem = steps(), problem.has_value()) || ...);
    return problem;
}

} // namespace

HistoryReader::HistoryReader(const QString& folder) : m_mailbox(this), m_folder(folder) {}

HistoryReader::~HistoryReader() = default;

void HistoryReader::list(int number, const HistoryFilter& filter)
{
    m_number = number;
    m_filter = filter;
    m_wanted.clear();
    m_index.reset();
    if (std::optional<Problem> problem = open()) {
        fail(*problem);
    } else if (m_store == nullptr) {
        m_state = {};
        Q_EMIT sigListed(m_number, m_state);
    } else {
        inTransaction([this] { return begin(); });
    }
}

void HistoryReader::read(int page)
{
    if (m_index != nullptr) {
        inTransaction([this, page] { return answer(page); });
    }
}

void HistoryReader::look()
{
    if (m_index == nullptr) {
        list(m_number, m_filter); // there was none, or it could not be read
        return;
    }
    inTransaction([] { return std::optional<Problem>(); });
}

void HistoryReader::inTransaction(const std::function<std::optional<Problem>()>& work)
{
    std::optional<Problem> problem = m_query->begin();
    if (!problem) {
        problem = absorb();
        if (!problem) {
            problem = work();
        }
        m_query->end();
    }
    if (problem) {
        fail(*problem);
    } else if (m_index != nullptr && !m_index->isComplete()) {
        extendLater();
    }
}

std::optional<Problem> HistoryReader::open()
{
    if (m_store == nullptr) {
        auto store = std::make_unique<HistoryStore>(m_folder);
        if (!store->exists()) {
            return std::nullopt;
        }
        if (std::optional<Problem> problem = store->openToRead()) {
            return problem;
        }
        m_store = std::move(store);
    }
    m_query = std::make_unique<HistoryQuery>(m_store->database(), m_filter);
    return std::nullopt;
}

// A transaction that only begins sees nothing yet; it is the first reading that chooses what all of them see.
std::optional<Problem> HistoryReader::absorb()
{
    const qint64 version = m_store->database().value(QStringLiteral("PRAGMA data_version")).toLongLong();
    const qint64 before = m_lastId;
    if (m_index == nullptr || version == m_dataVersion) {
        m_dataVersion = version;
        return std::nullopt;
    }
    m_dataVersion = version;
    QVector<HistoryRecord> stored;
    HistoryTotals more;
    QVector<HistoryIndex::Insertion> insertions;
    std::optional<Problem> problem = m_query->lastId(&m_lastId);
    if (problem || m_lastId == before) {
        return problem;
    }
    if (m_lastId - before > c_mostStored) {
        return begin();
    }
    problem = firstProblem([&] { return m_query->storedAfter(before, c_mostStored, &stored); },
                           [&] { return m_query->totalsAfter(before, &more); },
                           [&] { return m_index->take(stored, &insertions); }, [this] { return readOrigins(); });
    if (problem) {
        return problem;
    }
    m_state.totals.add(more);
    m_state.entries = m_index->entries();
    Q_EMIT sigStored(m_number, insertions, m_state);
    return std::nullopt;
}

std::optional<Problem> HistoryReader::begin()
{
    m_state = {};
    m_state.isThere = true;
    std::optional<Problem> problem =
        firstProblem([this] { return m_query->totals({}, &m_state.totals); },
                     [this] { return m_query->lastId(&m_lastId); }, [this] { return readOrigins(); });
    if (problem) {
        return problem;
    }
    m_state.entries = m_state.totals.listed(m_filter);
    m_index = std::make_unique<HistoryIndex>(m_store->database(), m_filter);
    problem = firstProblem([this] { return m_index->begin(m_state.entries); }, [this] { return m_index->extend(2); });
    if (problem) {
        return problem;
    }
    Q_EMIT sigListed(m_number, m_state);
    return std::nullopt;
}

std::optional<Problem> HistoryReader::readOrigins()
{
    return HistoryKeys(m_store->database(), m_filter).origins(&m_state.wrenches, &m_state.programs);
}

std::optional<Problem> HistoryReader::answer(int page)
{
    const bool isThere = page >= 0 && qint64(page) * HistoryIndex::c_page < m_index->entries();
    if (isThere && !m_index->knows(page)) {
        m_wanted.append(page);
        return std::nullopt;
    }
    QVector<HistoryRecord> records;
    if (isThere) {
        if (std::optional<Problem> problem = m_index->read(page, &records)) {
            return problem;
        }
    }
    Q_EMIT sigPage(m_number, page, records);
    return std::nullopt;
}

void HistoryReader::extendLater()
{
    if (!m_isExtending) {
        m_isExtending = true;
        QMetaObject::invokeMethod(this, &HistoryReader::extend, Qt::QueuedConnection);
    }
}

void HistoryReader::extend()
{
    m_isExtending = false;
    if (m_index == nullptr) {
        return;
    }
    inTransaction([this] {
        if (std::optional<Problem> problem = m_index->extend(c_pagesATurn)) {
            return problem;
        }
        const QVector<int> wanted = m_wanted;
        m_wanted.clear();
        for (const int page : wanted) {
            if (std::optional<Problem> problem = answer(page)) {
                return problem;
            }
        }
        return std::optional<Problem>();
    });
}

// The file is opened again when it is looked at next: it may have been put in order.
void HistoryReader::fail(const Problem& problem)
{
    m_index.reset();
    m_query.reset();
    m_store.reset();
    m_state = {};
    Q_EMIT sigFailed(m_number, problem);
}
