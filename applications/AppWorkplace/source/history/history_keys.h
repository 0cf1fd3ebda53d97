#pragma once

#include <QSqlQuery>
#include <QStringList>
#include <QVector>

#include <optional>

#include "../services/problem.h"
#include "history_conditions.h"
#include "history_filter.h"

class HistoryDatabase;

/// Finds places in the list that a filter lets through, without reading the entries themselves. Its cost is that of
/// the entries passed by, a small part of reading them.
class HistoryKeys
{
public:
    /// The database is open, and outlives this.
    HistoryKeys(HistoryDatabase& database, const HistoryFilter& filter);

    /// The key of the entry so many (from 1) behind that one, none: behind the beginning; none when there is none.
    std::optional<Problem> behind(const std::optional<HistoryKey>& key, int entries, std::optional<HistoryKey>* found);
    /// The same before that one, none: before the end.
    std::optional<Problem> before(const std::optional<HistoryKey>& key, int entries, std::optional<HistoryKey>* found);

    /// Of all entries, whatever the filter, each in its order: the wrenches, and the programs that are numbers.
    std::optional<Problem> origins(QStringList* wrenches, QStringList* programs);

    enum class Way { Behind, Before };
    /// With named places; for whoever wants to see how it is answered.
    QString statement(Way way, const std::optional<HistoryKey>& key) const;

private:
    std::optional<Problem> find(Way way, const std::optional<HistoryKey>& key, int entries,
                                std::optional<HistoryKey>* found);
    QSqlQuery prepared(Way way, const std::optional<HistoryKey>& key);
    std::optional<Problem> distinct(const QString& column, const QString& least, QStringList* values);
    Problem problem() const;

    HistoryDatabase& m_database;
    const HistoryConditions m_conditions;
    std::optional<QSqlQuery> m_before; // a key before another one: it is asked for again and again
};
