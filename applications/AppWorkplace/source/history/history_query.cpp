#include "history_query.h"

#include <QCoreApplication>

#include <limits>
#include <utility>

#include "history_database.h"
#include "history_problem.h"

namespace {

constexpr int c_mostKnown = 256;

const QString c_good = QStringLiteral("good = 1");
const QString c_notGood = QStringLiteral("good = 0");
const QString c_note = QStringLiteral("good IS NULL");

const QString c_columns =
    QStringLiteral("id, kind, arrived_us, utc_offset_s, serial_id, origin, good, other_entries, raw_line, preset, "
                   "after_reconnection, counter, count_before, count_after, repeat_of, convertedTorque, direction, "
                   "torqueStatus, snugTorqueAngle, angleStatus, readingNumber, readingStatus, eventCountNo, progId");
enum Column {
    Id,
    Kind,
    ArrivedUs,
    UtcOffsetS,
    SerialId,
    OriginId,
    Good,
    OtherEntries,
    RawLine,
    PresetId,
    AfterReconnection,
    Counter,
    CountBefore,
    CountAfter,
    RepeatOf,
    FirstEntry
};

const QString c_serialPlace = QStringLiteral(":serial");
const QString c_programPlace = QStringLiteral(":program");

} // namespace

HistoryQuery::HistoryQuery(HistoryDatabase& database, const HistoryFilter& filter)
    : m_database(database), m_filter(filter)
{}

std::optional<Problem> HistoryQuery::begin()
{
    return m_database.run(QStringLiteral("BEGIN")) ? std::nullopt : std::optional<Problem>(problem());
}

void HistoryQuery::end()
{
    m_database.run(QStringLiteral("COMMIT")); // nothing was written
}

// The arms of a union are each in the order of an index, and are merged as far as the page needs them.
QString HistoryQuery::pageStatement(const std::optional<HistoryKey>& behind) const
{
    QStringList verdicts;
    if (!m_filter.isGood || *m_filter.isGood) {
        verdicts.append(c_good);
    }
    if (!m_filter.isGood || !*m_filter.isGood) {
        verdicts.append(c_notGood);
    }
    if (m_filter.hasNotes()) {
        verdicts.append(c_note);
    }
    QStringList arms;
    for (const QString& verdict : qAsConst(verdicts)) {
        arms.append(QStringLiteral("SELECT %1 FROM entries WHERE %2%3")
                        .arg(c_columns, condition(verdict), keyCondition(behind)));
    }
    return arms.join(QStringLiteral(" UNION ALL ")) + QStringLiteral(" ORDER BY arrived_us, id LIMIT :most");
}

std::optional<Problem> HistoryQuery::page(const std::optional<HistoryKey>& behind, int most,
                                          QVector<HistoryRecord>* records)
{
    QSqlQuery query = m_database.prepared(pageStatement(behind));
    bindFilter(query, behind);
    query.bindValue(QStringLiteral(":most"), most);
    return read(query, records);
}

std::optional<Problem> HistoryQuery::storedAfter(qint64 id, int most, QVector<HistoryRecord>* records)
{
    // The unary plus keeps SQLite from an index that is not in the order of storing.
    QString statement = QStringLiteral("SELECT %1 FROM entries WHERE id > :id").arg(c_columns);
    statement += m_filter.serialId.isEmpty() ? QString() : QStringLiteral(" AND +serial_id = :serial");
    statement += m_filter.program ? QStringLiteral(" AND +progId = :program") : QString();
    if (m_filter.isGood) {
        statement += QStringLiteral(" AND +") + (*m_filter.isGood ? c_good : c_notGood);
    } else if (!m_filter.hasNotes()) {
        statement += QStringLiteral(" AND +good IS NOT NULL");
    }
    QSqlQuery query = m_database.prepared(
        statement + QStringLiteral(" AND +arrived_us >= :least AND +arrived_us < :end ORDER BY id LIMIT :most"));
    bindFilter(query, std::nullopt);
    query.bindValue(QStringLiteral(":id"), id);
    query.bindValue(QStringLiteral(":most"), most);
    return read(query, records);
}

std::optional<Problem> HistoryQuery::beforeLast(int results, std::optional<HistoryKey>* behind)
{
    QStringList arms;
    for (const bool isGood : {true, false}) {
        if (!m_filter.isGood || *m_filter.isGood == isGood) {
            arms.append(QStringLiteral("SELECT arrived_us, id FROM entries WHERE %1")
                            .arg(condition(isGood ? c_good : c_notGood)));
        }
    }
    QSqlQuery query = m_database.prepared(arms.join(QStringLiteral(" UNION ALL ")) +
                                          QStringLiteral(" ORDER BY arrived_us DESC, id DESC LIMIT 1 OFFSET :others"));
    bindFilter(query, std::nullopt);
    query.bindValue(QStringLiteral(":others"), results - 1);
    if (!m_database.run(query)) {
        return problem();
    }
    if (query.next()) {
        *behind = HistoryKey{query.value(0).toLongLong(), query.value(1).toLongLong() - 1};
    } else {
        behind->reset();
    }
    return std::nullopt;
}

std::optional<Problem> HistoryQuery::totals(const std::optional<HistoryKey>& behind, HistoryTotals* totals)
{
    *totals = {};
    for (const bool isGood : {true, false}) {
        if (m_filter.isGood && *m_filter.isGood != isGood) {
            continue;
        }
        QSqlQuery query = m_database.prepared(QStringLiteral("SELECT COUNT(*) FROM entries WHERE %1%2")
                                                  .arg(condition(isGood ? c_good : c_notGood), keyCondition(behind)));
        bindFilter(query, behind);
        if (!m_database.run(query) || !query.next()) {
            return problem();
        }
        (isGood ? totals->good : totals->notGood) = query.value(0).toLongLong();
    }
    HistoryFilter notes = m_filter;
    notes.program.reset();
    notes.isGood.reset();
    const HistoryQuery ofNotes(m_database, notes);
    QSqlQuery query = m_database.prepared(QStringLiteral("SELECT kind, COUNT(*) FROM entries WHERE %1%2 GROUP BY kind")
                                              .arg(ofNotes.condition(c_note), keyCondition(behind)));
    ofNotes.bindFilter(query, behind);
    if (!m_database.run(query)) {
        return problem();
    }
    while (query.next()) {
        const bool isGap = query.value(0).toInt() == int(HistoryRecord::Kind::Gap);
        (isGap ? totals->gaps : totals->repeats) = query.value(1).toLongLong();
    }
    return std::nullopt;
}

std::optional<Problem> HistoryQuery::lastId(qint64* id)
{
    const QVariant found = m_database.value(QStringLiteral("SELECT MAX(id) FROM entries"));
    if (!found.isValid()) {
        return problem();
    }
    *id = found.toLongLong();
    return std::nullopt;
}

QString HistoryQuery::condition(const QString& verdict) const
{
    QString text = m_filter.serialId.isEmpty() ? QString() : QStringLiteral("serial_id = :serial AND ");
    text += m_filter.program ? QStringLiteral("progId = :program AND ") : QString();
    return text + verdict + QStringLiteral(" AND arrived_us >= :least AND arrived_us < :end");
}

QString HistoryQuery::keyCondition(const std::optional<HistoryKey>& behind) const
{
    return behind ? QStringLiteral(" AND (arrived_us > :key_us OR (arrived_us = :key_us AND id > :key_id))")
                  : QString();
}

void HistoryQuery::bindFilter(QSqlQuery& query, const std::optional<HistoryKey>& behind) const
{
    if (!m_filter.serialId.isEmpty()) {
        query.bindValue(c_serialPlace, m_filter.serialId);
    }
    if (m_filter.program) {
        query.bindValue(c_programPlace, *m_filter.program);
    }
    const qint64 since = m_filter.sinceUs.value_or(std::numeric_limits<qint64>::min());
    query.bindValue(QStringLiteral(":least"), behind ? std::max(since, behind->arrivedUs) : since);
    query.bindValue(QStringLiteral(":end"), m_filter.untilUs.value_or(std::numeric_limits<qint64>::max()));
    if (behind) {
        query.bindValue(QStringLiteral(":key_us"), behind->arrivedUs);
        query.bindValue(QStringLiteral(":key_id"), behind->id);
    }
}

std::optional<Problem> HistoryQuery::read(QSqlQuery& query, QVector<HistoryRecord>* records)
{
    records->clear();
    if (!m_database.run(query)) {
        return problem();
    }
    while (query.next()) {
        HistoryRecord record;
        record.id = query.value(Id).toLongLong();
        record.kind = HistoryRecord::Kind(query.value(Kind).toInt());
        record.arrivedUs = query.value(ArrivedUs).toLongLong();
        record.utcOffsetS = query.value(UtcOffsetS).toInt();
        record.serialId = query.value(SerialId).toString();
        record.isGood = query.value(Good).toBool();
        record.otherEntries = query.isNull(OtherEntries) ? QString() : query.value(OtherEntries).toString();
        record.rawLine = query.value(RawLine).toByteArray();
        record.isAfterReconnection = query.value(AfterReconnection).toBool();
        for (std::size_t i = 0; i < record.entries.size(); ++i) {
            QVariant entry = query.value(FirstEntry + int(i));
            if (!entry.isNull()) {
                record.entries.at(i) = std::move(entry);
            }
        }
        if (record.kind != HistoryRecord::Kind::Result) {
            record.counter = query.value(Counter).toString();
            record.countBefore = query.value(CountBefore).toLongLong();
            record.countAfter = query.value(CountAfter).toLongLong();
            record.repeatOf = query.value(RepeatOf).toLongLong();
        }
        if (!lookUp(query.value(OriginId).toLongLong(), query.value(PresetId).toLongLong(), &record)) {
            return problem();
        }
        records->append(std::move(record));
    }
    // The end of what there is, or an error on the way to it.
    if (query.lastError().isValid()) {
        return historyProblem(QCoreApplication::translate("History", "the history cannot be read"), m_database.file(),
                              query.lastError());
    }
    return std::nullopt;
}

bool HistoryQuery::lookUp(qint64 origin, qint64 preset, HistoryRecord* record)
{
    auto knownOrigin = m_origins.find(origin);
    if (knownOrigin == m_origins.end()) {
        QSqlQuery query = m_database.prepared(QStringLiteral("SELECT device, plugin FROM origins WHERE id = ?"));
        query.addBindValue(origin);
        if (!m_database.run(query)) {
            return false;
        }
        knownOrigin = m_origins.insert(
            origin, query.next() ? Origin{query.value(0).toString(), query.value(1).toString()} : Origin{});
    }
    if (preset != 0 && !m_presets.contains(preset)) {
        if (m_presets.size() == c_mostKnown) {
            m_presets.clear();
        }
        QSqlQuery query = m_database.prepared(QStringLiteral("SELECT preset FROM presets WHERE id = ?"));
        query.addBindValue(preset);
        if (!m_database.run(query)) {
            return false;
        }
        m_presets.insert(preset, query.next() ? query.value(0).toString() : QString());
    }
    record->device = knownOrigin->device;
    record->plugin = knownOrigin->plugin;
    record->preset = preset != 0 ? m_presets.value(preset) : QString();
    return true;
}

Problem HistoryQuery::problem() const
{
    return historyProblem(QCoreApplication::translate("History", "the history cannot be read"), m_database.file(),
                          m_database.error());
}
