#include "history_keys.h"

#include <QCoreApplication>

#include "history_database.h"
#include "history_problem.h"

HistoryKeys::HistoryKeys(HistoryDatabase& database, const HistoryFilter& filter)
    : m_database(database), m_conditions(filter)
{}

std::optional<Problem> HistoryKeys::behind(const std::optional<HistoryKey>& key, int entries,
                                           std::optional<HistoryKey>* found)
{
    return find(Way::Behind, key, entries, found);
}

std::optional<Problem> HistoryKeys::before(const std::optional<HistoryKey>& key, int entries,
                                           std::optional<HistoryKey>* found)
{
    return find(Way::Before, key, entries, found);
}

std::optional<Problem> HistoryKeys::find(Way way, const std::optional<HistoryKey>& key, int entries,
                                         std::optional<HistoryKey>* found)
{
    found->reset();
    QSqlQuery query = prepared(way, key);
    if (way == Way::Behind) {
        m_conditions.bind(query, key);
    } else {
        m_conditions.bind(query, std::nullopt, key);
    }
    query.bindValue(QStringLiteral(":others"), entries - 1);
    if (!m_database.run(query)) {
        return problem();
    }
    if (query.next()) {
        *found = HistoryKey{query.value(0).toLongLong(), query.value(1).toLongLong()};
    }
    query.finish();
    return std::nullopt;
}

QSqlQuery HistoryKeys::prepared(Way way, const std::optional<HistoryKey>& key)
{
    const bool isUsual = way == Way::Before && key;
    if (isUsual && m_before) {
        return *m_before;
    }
    const QSqlQuery query = m_database.prepared(statement(way, key));
    if (isUsual) {
        m_before = query;
    }
    return query;
}

QString HistoryKeys::statement(Way way, const std::optional<HistoryKey>& key) const
{
    QStringList selections;
    const QStringList arms = m_conditions.arms();
    for (const QString& arm : arms) {
        selections.append(
            QStringLiteral("SELECT arrived_us, id FROM entries WHERE %1%2")
                .arg(arm, way == Way::Behind ? HistoryConditions::behind(key) : HistoryConditions::before(key)));
    }
    const QString order = way == Way::Behind ? QStringLiteral(" ORDER BY arrived_us, id")
                                             : QStringLiteral(" ORDER BY arrived_us DESC, id DESC");
    return selections.join(QStringLiteral(" UNION ALL ")) + order + QStringLiteral(" LIMIT 1 OFFSET :others");
}

std::optional<Problem> HistoryKeys::origins(QStringList* wrenches, QStringList* programs)
{
    if (std::optional<Problem> problem = distinct(QStringLiteral("serial_id"), QStringLiteral("''"), wrenches)) {
        return problem;
    }
    return distinct(QStringLiteral("progId"), QStringLiteral("0"), programs);
}

// From each value to the next one, over an index: it costs what it finds. Texts come behind all numbers.
std::optional<Problem> HistoryKeys::distinct(const QString& column, const QString& least, QStringList* values)
{
    values->clear();
    QSqlQuery query = m_database.prepared(
        QStringLiteral("WITH RECURSIVE found (value) AS (SELECT MIN(%1) FROM entries WHERE %1 >= %2 UNION ALL "
                       "SELECT (SELECT MIN(%1) FROM entries WHERE %1 > value) FROM found WHERE value IS NOT NULL) "
                       "SELECT value FROM found WHERE value IS NOT NULL AND typeof(value) = typeof(%2)")
            .arg(column, least));
    if (!m_database.run(query)) {
        return problem();
    }
    while (query.next()) {
        values->append(query.value(0).toString());
    }
    return std::nullopt;
}

Problem HistoryKeys::problem() const
{
    return historyProblem(QCoreApplication::translate("History", "the history cannot be read"), m_database.file(),
                          m_database.error());
}
