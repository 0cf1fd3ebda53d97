#pragma once

#include <QHash>
#include <QSqlQuery>
#include <QString>
#include <QVector>

#include <optional>

#include "../services/problem.h"
#include "history_conditions.h"
#include "history_filter.h"
#include "history_record.h"

class HistoryDatabase;

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
    /// Of what was stored after the entry with that id.
    std::optional<Problem> totalsAfter(qint64 id, HistoryTotals* totals);
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

    std::optional<Problem> read(QSqlQuery& query, QVector<HistoryRecord>* records);
    bool lookUp(qint64 origin, qint64 preset, HistoryRecord* record);
    Problem problem() const;

    HistoryDatabase& m_database;
    const HistoryFilter m_filter;
    const HistoryConditions m_conditions;
    QHash<qint64, Origin> m_origins;  // by their ids
    QHash<qint64, QString> m_presets; // the same; some of them
};
