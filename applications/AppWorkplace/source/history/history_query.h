#pragma once

#include <QHash>
#include <QSqlQuery>
#include <QString>
#include <QVector>

#include <optional>

#include "../services/problem.h"
#include "history_record.h"

class HistoryDatabase;

/// Which entries are wanted. Gaps and repeats belong to a wrench, not to a program or a verdict: they are among the
/// entries unless one of those is asked for.
struct HistoryFilter
{
    std::optional<qint64> sinceUs; ///< arrived then or later
    std::optional<qint64> untilUs; ///< arrived before then
    QString serialId;              ///< empty: any wrench
    std::optional<int> program;
    std::optional<bool> isGood;

    bool hasNotes() const { return !program && !isGood; }
};

/// Where an entry stands: by the time of arrival, and of the same time by the order of storing.
struct HistoryKey
{
    qint64 arrivedUs = 0;
    qint64 id = 0;
};

/// How many there are of each kind. Gaps and repeats are those of the wrench and the time, whatever the other filters.
struct HistoryTotals
{
    qint64 good = 0;
    qint64 notGood = 0;
    qint64 gaps = 0;
    qint64 repeats = 0;
};

/// Reads the history, page by page, the oldest first. A page costs what it holds, however much is stored.
class HistoryQuery
{
public:
    /// The database is open, and outlives the query.
    HistoryQuery(HistoryDatabase& database, const HistoryFilter& filter);

    /// What is stored meanwhile is not seen between begin and end.
    std::optional<Problem> begin();
    void end();

    /// Up to `most` entries behind that key, none: from the first.
    std::optional<Problem> page(const std::optional<HistoryKey>& behind, int most, QVector<HistoryRecord>* records);
    /// Up to `most` entries stored after the one with that id, in the order of storing.
    std::optional<Problem> storedAfter(qint64 id, int most, QVector<HistoryRecord>* records);
    /// The key to read behind so that the last `results` results, and the notes among them, come; none: from the first.
    std::optional<Problem> beforeLast(int results, std::optional<HistoryKey>* behind);
    std::optional<Problem> totals(const std::optional<HistoryKey>& behind, HistoryTotals* totals);
    /// The id of what was stored last; 0: nothing is.
    std::optional<Problem> lastId(qint64* id);

    /// The statement of a page, with named places; for whoever wants to see how it is answered.
    QString pageStatement(const std::optional<HistoryKey>& behind) const;

private:
    struct Origin
    {
        QString device;
        QString plugin;
    };

    /// The condition of the filters that are set, for entries with that verdict.
    QString condition(const QString& verdict) const;
    QString keyCondition(const std::optional<HistoryKey>& behind) const;
    void bindFilter(QSqlQuery& query, const std::optional<HistoryKey>& behind) const;
    std::optional<Problem> read(QSqlQuery& query, QVector<HistoryRecord>* records);
    bool lookUp(qint64 origin, qint64 preset, HistoryRecord* record);
    Problem problem() const;

    HistoryDatabase& m_database;
    const HistoryFilter m_filter;
    QHash<qint64, Origin> m_origins;  // by their ids
    QHash<qint64, QString> m_presets; // the same; some of them
};
