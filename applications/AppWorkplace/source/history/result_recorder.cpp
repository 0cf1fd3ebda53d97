#include "result_recorder.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

#include "../services/verdict.h"
#include "history_store.h"

namespace {

constexpr qint64 c_usPerMs = 1000;

/// Whether the history keeps a value of that kind as it is.
bool isStorable(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QString:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

QString jsonOf(const QVariantMap& map)
{
    return map.isEmpty()
               ? QString()
               : QString::fromUtf8(QJsonDocument(QJsonObject::fromVariantMap(map)).toJson(QJsonDocument::Compact));
}

} // namespace

ResultRecorder::ResultRecorder(HistoryStore& store, Origin origin, QObject* parent)
    : QObject(parent), m_store(store), m_origin(std::move(origin))
{}

std::optional<Problem> ResultRecorder::continueCount()
{
    std::optional<Problem> problem;
    m_sequence.continueFrom(m_store.lastReadingNumber(m_origin.serialId, &problem));
    return problem;
}

bool ResultRecorder::take(const TighteningResult& result)
{
    HistoryRecord record = recordOf(result);
    QStringList reading;
    for (int i = 0; i < HistoryRecord::EventCountNo; ++i) {
        reading.append(record.entries.at(std::size_t(i)).toString());
    }
    const QString number = record.entries.at(HistoryRecord::ReadingNumber).toString();
    const ReadingSequence::Outcome outcome = m_sequence.take(reading, number, result.isFirstAfterReconnection);
    if (outcome.gap) {
        addGap(*outcome.gap, result.arrival);
    }
    if (outcome.isRepeat) {
        record.kind = HistoryRecord::Kind::Repeat;
    }
    add(record, result.eventData);
    return !outcome.isRepeat;
}

void ResultRecorder::takeChunk(int number)
{
    if (const std::optional<ReadingSequence::Gap> gap = m_sequence.takeChunk(number)) {
        addGap(*gap, QDateTime::currentDateTimeUtc());
    }
}

void ResultRecorder::flush()
{
    if (m_failure || m_records.isEmpty()) {
        return;
    }
    QVector<HistoryRecord> records = std::exchange(m_records, {});
    const QVector<QVariantMap> eventData = std::exchange(m_eventData, {});
    m_failure = m_store.append(records);
    if (m_failure) {
        Q_EMIT sigFailed(*m_failure);
        return;
    }
    for (int i = 0; i < records.size(); ++i) {
        const HistoryRecord& record = records.at(i);
        if (record.kind == HistoryRecord::Kind::Result) {
            ++(record.isGood ? m_good : m_notGood);
            Q_EMIT sigResult(eventData.at(i), record);
        } else {
            Q_EMIT sigNote(record);
        }
    }
}

HistoryRecord ResultRecorder::recordAt(const QDateTime& arrival) const
{
    HistoryRecord record;
    record.arrivedUs = arrival.toMSecsSinceEpoch() * c_usPerMs;
    record.utcOffsetS = arrival.toLocalTime().offsetFromUtc();
    record.serialId = m_origin.serialId;
    record.device = m_origin.device;
    record.plugin = m_origin.plugin;
    return record;
}

HistoryRecord ResultRecorder::recordOf(const TighteningResult& result) const
{
    HistoryRecord record = recordAt(result.arrival);
    QVariantMap others = result.eventData;
    for (std::size_t i = 0; i < record.entries.size(); ++i) {
        const QString name = QLatin1String(HistoryRecord::c_entryNames.at(i));
        if (isStorable(others.value(name))) {
            record.entries.at(i) = others.take(name);
        }
    }
    record.otherEntries = jsonOf(others);
    record.isGood = isGood(result.eventData);
    record.rawLine = result.rawLine;
    record.preset = jsonOf(result.preset);
    record.isAfterReconnection = result.isFirstAfterReconnection;
    return record;
}

void ResultRecorder::addGap(const ReadingSequence::Gap& gap, const QDateTime& arrival)
{
    HistoryRecord record = recordAt(arrival);
    record.kind = HistoryRecord::Kind::Gap;
    record.counter = gap.counter;
    record.countBefore = gap.before;
    record.countAfter = gap.after;
    add(record, {});
}

void ResultRecorder::add(const HistoryRecord& record, const QVariantMap& eventData)
{
    if (m_failure) {
        return;
    }
    if (m_records.isEmpty()) {
        QMetaObject::invokeMethod(this, &ResultRecorder::flush, Qt::QueuedConnection);
    }
    m_records.append(record);
    m_eventData.append(eventData);
}
