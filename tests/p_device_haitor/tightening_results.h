#pragma once

#include "recording_order.h"

// A result line, its record, and the results that an order has noted.

inline const QByteArray c_result = QByteArrayLiteral("RE:F:12.5,1,0,30,1,3,2\r\n");

/// The record of c_result.
inline QVariantMap record(int eventCountNo, int progId)
{
    return {{QStringLiteral("convertedTorque"), QStringLiteral("12.5")},
            {QStringLiteral("direction"), QStringLiteral("1")},
            {QStringLiteral("torqueStatus"), QStringLiteral("0")},
            {QStringLiteral("snugTorqueAngle"), QStringLiteral("30")},
            {QStringLiteral("angleStatus"), QStringLiteral("1")},
            {QStringLiteral("readingNumber"), QStringLiteral("3")},
            {QStringLiteral("readingStatus"), QStringLiteral("2")},
            {QStringLiteral("eventCountNo"), eventCountNo},
            {QStringLiteral("progId"), progId}};
}

inline QVector<QVariantMap> recordsOf(const RecordingOrder& order)
{
    QVector<QVariantMap> records;
    const QVector<QVariantMap> published = order.published();
    for (const QVariantMap& values : published) {
        records.append(values.value(QStringLiteral("eventData")).toMap());
    }
    return records;
}

/// The values under one key, one for each result.
inline QVariantList valuesOf(const RecordingOrder& order, const char* key)
{
    QVariantList values;
    const QVector<QVariantMap> records = recordsOf(order);
    for (const QVariantMap& each : records) {
        values.append(each.value(QLatin1String(key)));
    }
    return values;
}
