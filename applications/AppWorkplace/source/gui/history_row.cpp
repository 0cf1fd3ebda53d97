#include "history_row.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>

namespace {

constexpr qint64 c_usPerMs = 1000;

/// With all digits of the year, whatever the language is content with.
QString dateFormat(const QLocale& locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy"))) {
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    }
    return format;
}

QString text(const QVariant& entry)
{
    return entry.isValid() ? entry.toString() : QStringLiteral("–");
}

} // namespace

QString history_row::arrived(const HistoryRecord& record)
{
    const QLocale locale;
    const QDateTime moment =
        QDateTime::fromMSecsSinceEpoch(record.arrivedUs / c_usPerMs, Qt::OffsetFromUTC, record.utcOffsetS);
    return QStringLiteral("%1  %2").arg(locale.toString(moment.date(), dateFormat(locale)),
                                        moment.time().toString(QStringLiteral("HH:mm:ss")));
}

QString history_row::number(const HistoryRecord& record, HistoryRecord::Entry entry)
{
    static const QRegularExpression decimal(QStringLiteral("^[+-]?\\d+\\.\\d+$"));
    QString shown = text(record.entries.at(entry));
    if (decimal.match(shown).hasMatch()) {
        shown.replace(QLatin1Char('.'), QLocale().decimalPoint());
    }
    return shown;
}

QString history_row::unit(const HistoryRecord& record)
{
    if (record.preset.isEmpty()) {
        return {};
    }
    return QJsonDocument::fromJson(record.preset.toUtf8()).object().value(QLatin1String("unit")).toString();
}

QString history_row::status(const HistoryRecord& record)
{
    return QStringLiteral("%1 %2 %3")
        .arg(text(record.entries.at(HistoryRecord::TorqueStatus)), text(record.entries.at(HistoryRecord::AngleStatus)),
             text(record.entries.at(HistoryRecord::ReadingStatus)));
}
