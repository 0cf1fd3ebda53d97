#include "wrench_entries.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

#include "../history/history_record.h"

namespace {

constexpr qint64 c_usPerMs = 1000;

QVariant numberOf(const QString& text)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    return isNumber ? number : std::numeric_limits<double>::quiet_NaN();
}

QVariantMap programOf(const QVariantMap& listed)
{
    const QVariantMap preset = listed.value(QStringLiteral("presetData")).toMap();
    const QVariant id = listed.value(QStringLiteral("progId"));
    return {{QStringLiteral("progId"), id},
            {QStringLiteral("name"), QCoreApplication::translate("DeviceModel", "Program %1").arg(id.toInt())},
            {QStringLiteral("target"), numberOf(listed.value(QStringLiteral("TRQ")).toString())},
            {QStringLiteral("unit"), preset.value(QStringLiteral("unit"))},
            {QStringLiteral("angle"), listed.value(QStringLiteral("ANG"))},
            {QStringLiteral("snugTorque"), listed.value(QStringLiteral("SNG"))},
            {QStringLiteral("readings"), listed.value(QStringLiteral("NUM"))}};
}

} // namespace

QVariantList wrench_entries::programs(const QVariantList& listed)
{
    QVariantList programs;
    for (const QVariant& program : listed) {
        programs.append(programOf(program.toMap()));
    }
    return programs;
}

QVariantMap wrench_entries::result(const HistoryRecord& record)
{
    const auto text = [&record](HistoryRecord::Entry entry) { return record.entries.at(entry).toString(); };
    const QJsonObject preset = QJsonDocument::fromJson(record.preset.toUtf8()).object();
    return {{QStringLiteral("torqueText"), text(HistoryRecord::ConvertedTorque)},
            {QStringLiteral("torque"), numberOf(text(HistoryRecord::ConvertedTorque))},
            {QStringLiteral("unit"), preset.value(QStringLiteral("unit")).toString()},
            {QStringLiteral("direction"), text(HistoryRecord::Direction)},
            {QStringLiteral("angle"), text(HistoryRecord::SnugTorqueAngle)},
            {QStringLiteral("number"), text(HistoryRecord::ReadingNumber)},
            {QStringLiteral("program"), record.entries.at(HistoryRecord::ProgId).toInt()},
            {QStringLiteral("isGood"), record.isGood},
            {QStringLiteral("arrived"), QDateTime::fromMSecsSinceEpoch(record.arrivedUs / c_usPerMs)}};
}
