#include "history_conditions.h"

#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <limits>

namespace {

const QString c_good = QStringLiteral("good = 1");
const QString c_notGood = QStringLiteral("good = 0");
const QString c_note = QStringLiteral("good IS NULL");
const QString c_and = QStringLiteral(" AND ");

} // namespace

QString HistoryConditions::of(Verdict verdict) const
{
    QString text = m_filter.serialId.isEmpty() ? QString() : QStringLiteral("serial_id = :serial AND ");
    text += m_filter.program ? QStringLiteral("progId = :program AND ") : QString();
    text += verdict == Verdict::Good ? c_good : verdict == Verdict::NotGood ? c_notGood : c_note;
    return text + QStringLiteral(" AND arrived_us >= :least AND arrived_us < :end");
}

QStringList HistoryConditions::arms() const
{
    QStringList arms;
    if (!m_filter.isGood || *m_filter.isGood) {
        arms.append(of(Verdict::Good));
    }
    if (!m_filter.isGood || !*m_filter.isGood) {
        arms.append(of(Verdict::NotGood));
    }
    if (m_filter.hasNotes()) {
        arms.append(of(Verdict::Note));
    }
    return arms;
}

// The unary plus keeps SQLite from an index that is not in the order of storing.
QString HistoryConditions::ofStored(bool isWithNotes) const
{
    QStringList ofResults;
    if (m_filter.program) {
        ofResults.append(QStringLiteral("+progId = :program"));
    }
    if (m_filter.isGood) {
        ofResults.append(QLatin1Char('+') + (*m_filter.isGood ? c_good : c_notGood));
    }
    QString text = QStringLiteral("+arrived_us >= :least AND +arrived_us < :end");
    text += m_filter.serialId.isEmpty() ? QString() : QStringLiteral(" AND +serial_id = :serial");
    if (!ofResults.isEmpty()) {
        text += QStringLiteral(" AND (%1(+good IS NOT NULL AND %2))")
                    .arg(isWithNotes ? QStringLiteral("+good IS NULL OR ") : QString(), ofResults.join(c_and));
    }
    return text;
}

QString HistoryConditions::behind(const std::optional<HistoryKey>& key)
{
    return key ? QStringLiteral(" AND (arrived_us > :key_us OR (arrived_us = :key_us AND id > :key_id))") : QString();
}

QString HistoryConditions::before(const std::optional<HistoryKey>& key)
{
    return key ? QStringLiteral(" AND (arrived_us < :key_us OR (arrived_us = :key_us AND id < :key_id))") : QString();
}

// The bounds of the time are as narrow as the key makes them: it is them that an index is entered with.
void HistoryConditions::bind(QSqlQuery& query, const std::optional<HistoryKey>& behind,
                             const std::optional<HistoryKey>& before) const
{
    if (!m_filter.serialId.isEmpty()) {
        query.bindValue(QStringLiteral(":serial"), m_filter.serialId);
    }
    if (m_filter.program) {
        query.bindValue(QStringLiteral(":program"), *m_filter.program);
    }
    const qint64 since = m_filter.sinceUs.value_or(std::numeric_limits<qint64>::min());
    const qint64 until = m_filter.untilUs.value_or(std::numeric_limits<qint64>::max());
    query.bindValue(QStringLiteral(":least"), behind ? std::max(since, behind->arrivedUs) : since);
    query.bindValue(QStringLiteral(":end"), before ? std::min(until, before->arrivedUs + 1) : until);
    if (const std::optional<HistoryKey>& key = behind ? behind : before) {
        query.bindValue(QStringLiteral(":key_us"), key->arrivedUs);
        query.bindValue(QStringLiteral(":key_id"), key->id);
    }
}
