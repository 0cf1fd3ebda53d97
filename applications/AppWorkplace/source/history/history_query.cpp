#include "history_query.h"

#include <QCoreApplication>

#include <utility>

#include "history_database.h"
#include "history_format.h"
#include "history_problem.h"

namespace {

using Verdict = HistoryConditions::Verdict;

constexpr int c_mostKnown = 256;

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

} // namespace

HistoryQuery::HistoryQuery(HistoryDatabase& database, const HistoryFilter& filter)
    : m_database(database), m_filter(filter), m_conditions(filter)
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
    QStringList selections;
    const QStringList arms = m_conditions.arms();
    for (const QString& arm : arms) {
        selections.append(
            QStringLiteral("SELECT %1 FROM entries WHERE %2%3").arg(c_columns, arm, HistoryConditions::behind(behind)));
    }
    return selections.join(QStringLiteral(" UNION ALL ")) + QStringLiteral(" ORDER BY arrived_us, id LIMIT :most");
}

std::optional<Problem> HistoryQuery::page(const std::optional<HistoryKey>& behind, int most,
                                          QVector<HistoryRecord>* records)
{
    QSqlQuery query = m_database.prepared(pageStatement(behind));
    m_conditions.bind(query, behind);
    query.bindValue(QStringLiteral(":most"), most);
    return read(query, records);
}

std::optional<Problem> HistoryQuery::storedAfter(qint64 id, int most, QVector<HistoryRecord>* records)
{
    const QString statement =
        QStringLiteral("SELECT %1 FROM entries WHERE id > :id AND %2").arg(c_columns, m_conditions.ofStored(false));
    QSqlQuery query = m_database.prepared(statement + QStringLiteral(" ORDER BY id LIMIT :most"));
    m_conditions.bind(query, std::nullopt);
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
                            .arg(m_conditions.of(isGood ? Verdict::Good : Verdict::NotGood)));
        }
    }
    QSqlQuery query = m_database.prepared(arms.join(QStringLiteral(" UNION ALL ")) +
                                          QStringLiteral(" ORDER BY arrived_us DESC, id DESC LIMIT 1 OFFSET :others"));
    m_conditions.bind(query, std::nullopt);
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
        QSqlQuery query = m_database.prepared(
            QStringLiteral("SELECT COUNT(*) FROM entries WHERE %1%2")
                .arg(m_conditions.of(isGood ? Verdict::Good : Verdict::NotGood), HistoryConditions::behind(behind)));
        m_conditions.bind(query, behind);
        if (!m_database.run(query) || !query.next()) {
            return problem();
        }
        (isGood ? totals->good : totals->notGood) = query.value(0).toLongLong();
    }
    HistoryFilter notes = m_filter;
    notes.program.reset();
    notes.isGood.reset();
    const HistoryConditions ofNotes(notes);
    QSqlQuery query = m_database.prepared(QStringLiteral("SELECT kind, COUNT(*) FROM entries WHERE %1%2 GROUP BY kind")
                                              .arg(ofNotes.of(Verdict::Note), HistoryConditions::behind(behind)));
    ofNotes.bind(query, behind);
    if (!m_database.run(query)) {
        return problem();
    }
    while (query.next()) {
        const bool isGap = query.value(0).toInt() == int(HistoryRecord::Kind::Gap);
        (isGap ? totals->gaps : totals->repeats) = query.value(1).toLongLong();
    }
    return std::nullopt;
}

std::optional<Problem> HistoryQuery::totalsAfter(qint64 id, HistoryTotals* totals)
{
    *totals = {};
    QSqlQuery query = m_database.prepared(
        QStringLiteral("SELECT kind, good, COUNT(*) FROM entries WHERE id > :id AND %1 GROUP BY kind, good")
            .arg(m_conditions.ofStored(true)));
    m_conditions.bind(query, std::nullopt);
    query.bindValue(QStringLiteral(":id"), id);
    if (!m_database.run(query)) {
        return problem();
    }
    while (query.next()) {
        const qint64 count = query.value(2).toLongLong();
        switch (HistoryRecord::Kind(query.value(0).toInt())) {
        case HistoryRecord::Kind::Result:
            (query.value(1).toBool() ? totals->good : totals->notGood) = count;
            break;
        case HistoryRecord::Kind::Gap:
            totals->gaps = count;
            break;
        case HistoryRecord::Kind::Repeat:
            totals->repeats = count;
            break;
        }
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
        if (history_format::nameOf(record.kind).isEmpty()) {
            const QString verdict = QStringLiteral("kind %1 of entry %2").arg(int(record.kind)).arg(record.id);
            return historyRefusal(m_database.file(),
                                  QCoreApplication::translate("History", "it is damaged: %1").arg(verdict),
                                  damageMend(m_database.file()));
        }
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
