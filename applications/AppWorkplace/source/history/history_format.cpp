#include "history_format.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QStringList>

namespace {

constexpr qint64 c_usPerMs = 1000;
constexpr qint64 c_usPerSecond = 1000000;
constexpr int c_secondDecimals = 6;

constexpr const char* c_titlesBefore[] = {"id", "kind", "arrived", "serialId", "device", "plugin"};
constexpr const char* c_titlesBehind[] = {"good",     "afterReconnection", "counter", "countBefore", "countAfter",
                                          "repeatOf", "presetData",        "rawLine", "otherEntries"};

QJsonObject objectOf(const QString& json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

/// value: invalid where there is none.
void addCell(QByteArray& line, const QVariant& value)
{
    if (!line.isEmpty()) {
        line += ',';
    }
    if (!value.isValid()) {
        return;
    }
    QByteArray text = value.toString().toUtf8();
    const bool needsQuotes = text.isEmpty() || text.contains(',') || text.contains('"') || text.contains('\r') ||
                             text.contains('\n') || text.startsWith(' ') || text.endsWith(' ');
    line += needsQuotes ? '"' + text.replace('"', "\"\"") + '"' : text;
}

QVariant textOrNothing(const QString& text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

QVariant wordFor(bool isTrue)
{
    return isTrue ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

QString history_format::arrival(const HistoryRecord& record)
{
    // Before 1970, too, the fraction counts up.
    const qint64 fractionUs = (record.arrivedUs % c_usPerSecond + c_usPerSecond) % c_usPerSecond;
    const qint64 wholeMs = record.arrivedUs / c_usPerMs - (record.arrivedUs % c_usPerMs < 0 ? 1 : 0);
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(wholeMs, Qt::OffsetFromUTC, record.utcOffsetS);
    const QString text = moment.toString(Qt::ISODate); // "2026-11-21T08:30:15" and the offset
    constexpr int c_upToSeconds = 19;
    const QString fraction = QStringLiteral(".%1").arg(fractionUs, c_secondDecimals, 10, QLatin1Char('0'));
    return text.left(c_upToSeconds) + fraction + text.mid(c_upToSeconds);
}

QString history_format::nameOf(HistoryRecord::Kind kind)
{
    switch (kind) {
    case HistoryRecord::Kind::Result:
        return QStringLiteral("result");
    case HistoryRecord::Kind::Gap:
        return QStringLiteral("gap");
    case HistoryRecord::Kind::Repeat:
        return QStringLiteral("repeat");
    }
    return {};
}

QJsonObject history_format::toJson(const HistoryRecord& record)
{
    QJsonObject object{{QStringLiteral("id"), record.id},
                       {QStringLiteral("kind"), nameOf(record.kind)},
                       {QStringLiteral("arrived"), arrival(record)},
                       {QStringLiteral("serialId"), record.serialId},
                       {QStringLiteral("device"), record.device},
                       {QStringLiteral("plugin"), record.plugin}};
    switch (record.kind) {
    case HistoryRecord::Kind::Result: {
        QJsonObject eventData = QJsonObject::fromVariantMap(record.eventData());
        const QJsonObject others = objectOf(record.otherEntries);
        for (auto other = others.begin(); other != others.end(); ++other) {
            eventData.insert(other.key(), other.value());
        }
        object.insert(QStringLiteral("eventData"), eventData);
        object.insert(QStringLiteral("good"), record.isGood);
        object.insert(QStringLiteral("afterReconnection"), record.isAfterReconnection);
        if (!record.preset.isEmpty()) {
            object.insert(QStringLiteral("presetData"), objectOf(record.preset));
        }
        if (!record.rawLine.isEmpty()) {
            object.insert(QStringLiteral("rawLine"), QString::fromUtf8(record.rawLine));
        }
        break;
    }
    case HistoryRecord::Kind::Gap:
        object.insert(QStringLiteral("counter"), record.counter);
        object.insert(QStringLiteral("countBefore"), record.countBefore);
        object.insert(QStringLiteral("countAfter"), record.countAfter);
        break;
    case HistoryRecord::Kind::Repeat:
        object.insert(QStringLiteral("repeatOf"), record.repeatOf);
        break;
    }
    return object;
}

QByteArray history_format::csvTitles()
{
    QStringList titles;
    for (const char* title : c_titlesBefore) {
        titles.append(QLatin1String(title));
    }
    for (const char* entry : HistoryRecord::c_entryNames) {
        titles.append(QLatin1String(entry));
    }
    for (const char* title : c_titlesBehind) {
        titles.append(QLatin1String(title));
    }
    return titles.join(QLatin1Char(',')).toUtf8() + "\r\n";
}

QByteArray history_format::toCsv(const HistoryRecord& record)
{
    const bool isResult = record.kind == HistoryRecord::Kind::Result;
    const bool isGap = record.kind == HistoryRecord::Kind::Gap;
    QByteArray line;
    addCell(line, record.id);
    addCell(line, nameOf(record.kind));
    addCell(line, arrival(record));
    addCell(line, record.serialId);
    addCell(line, record.device);
    addCell(line, record.plugin);
    for (const QVariant& entry : record.entries) {
        addCell(line, entry);
    }
    addCell(line, isResult ? wordFor(record.isGood) : QVariant());
    addCell(line, isResult ? wordFor(record.isAfterReconnection) : QVariant());
    addCell(line, textOrNothing(record.counter));
    addCell(line, isGap ? QVariant(record.countBefore) : QVariant());
    addCell(line, isGap ? QVariant(record.countAfter) : QVariant());
    addCell(line, record.repeatOf != 0 ? QVariant(record.repeatOf) : QVariant());
    addCell(line, textOrNothing(record.preset));
    addCell(line, textOrNothing(QString::fromUtf8(record.rawLine)));
    addCell(line, textOrNothing(record.otherEntries));
    return line + "\r\n";
}
