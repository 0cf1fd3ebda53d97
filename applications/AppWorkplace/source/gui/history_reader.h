#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "../history/history_filter.h"
#include "../history/history_index.h"
#include "../history/history_store.h"
#include "../services/problem.h"
#include "mailbox.h"

/// How the list is that a filter lets through.
struct HistoryState
{
    qint64 entries = 0;
    HistoryTotals totals;
    QStringList wrenches; ///< of all that is stored
    QStringList programs; ///< the same
    bool isThere = false; ///< there is a history
};

/// Reads the history in a thread of its own, through a connection of its own. What it tells carries the number of the
/// filter that it was asked with, for it may come late. Its signals are emitted in its thread.
class HistoryReader : public QObject
{
    Q_OBJECT

public:
    explicit HistoryReader(const QString& folder);
    ~HistoryReader() override;

    /// From any thread: work that is done in that of the reader.
    void post(Mailbox::Work work) { m_mailbox.post(std::move(work)); }

    /// Begins anew with that filter; answers with sigListed.
    void list(int number, const HistoryFilter& filter);
    /// Answers with sigPage, once it is known where the page begins; never, when another list is begun before.
    void read(int page);
    /// Looks whether something was stored.
    void look();

Q_SIGNALS:
    void sigListed(int number, const HistoryState& state);
    /// The records of a page as HistoryIndex numbers them.
    void sigPage(int number, int page, const QVector<HistoryRecord>& records);
    /// What has come since, in the order of inserting, and how it is now.
    void sigStored(int number, const QVector<HistoryIndex::Insertion>& insertions, const HistoryState& state);
    void sigFailed(int number, const Problem& problem);

private:
    /// One read transaction: what was stored meanwhile is told first, then the work is done.
    void inTransaction(const std::function<std::optional<Problem>()>& work);
    std::optional<Problem> open();
    std::optional<Problem> absorb();
    std::optional<Problem> begin();
    std::optional<Problem> readOrigins();
    std::optional<Problem> answer(int page);
    void extendLater();
    void extend();
    void fail(const Problem& problem);

    Mailbox m_mailbox;
    const QString m_folder;
    int m_number = 0;
    HistoryFilter m_filter;
    std::unique_ptr<HistoryStore> m_store;
    std::unique_ptr<HistoryQuery> m_query;
    std::unique_ptr<HistoryIndex> m_index;
    HistoryState m_state;
    qint64 m_lastId = 0;
    qint64 m_dataVersion = -1;
    QVector<int> m_wanted; // pages that are not known yet
    bool m_isExtending = false;
};
