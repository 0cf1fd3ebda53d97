#pragma once

#include <QString>
#include <QVariant>

/// Whether a tightening was good: each of its status fields that the wrench filled in says "0". An interpretation for
/// people; the record itself is never changed by it.
inline bool isGood(const QVariantMap& eventData)
{
    const QString torque = eventData.value(QStringLiteral("torqueStatus")).toString();
    const QString angle = eventData.value(QStringLiteral("angleStatus")).toString();
    const QString reading = eventData.value(QStringLiteral("readingStatus")).toString();
    const QLatin1String good("0");
    return torque == good && angle == good && (reading == good || reading.isEmpty());
}
