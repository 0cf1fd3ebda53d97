#include "heard_wrenches.h"

#include <algorithm>

namespace {

const QString c_addressKey = QStringLiteral("mac");
const QString c_serialKey = QStringLiteral("sn");
const QString c_strengthKey = QStringLiteral("rssi");

} // namespace

bool HeardWrenches::add(const QString& address, const QString& serialId, const QString& signalStrength)
{
    const QVariantMap heard{{c_addressKey, address}, {c_serialKey, serialId}, {c_strengthKey, signalStrength}};
    QVariantMap& known = m_byAddress[address];
    if (known == heard) {
        return false;
    }
    known = heard;
    return true;
}

QVariantList HeardWrenches::strongestFirst() const
{
    QVariantList wrenches;
    for (const QVariantMap& wrench : m_byAddress) {
        wrenches.append(wrench);
    }
    return strongestFirst(wrenches);
}

QVariantList HeardWrenches::strongestFirst(QVariantList wrenches)
{
    std::stable_sort(wrenches.begin(), wrenches.end(), [](const QVariant& left, const QVariant& right) {
        return left.toMap().value(c_strengthKey).toInt() > right.toMap().value(c_strengthKey).toInt();
    });
    return wrenches;
}

QString HeardWrenches::inWords() const
{
    QStringList wrenches;
    const QVariantList heard = strongestFirst();
    for (const QVariant& wrench : heard) {
        const QVariantMap fields = wrench.toMap();
        wrenches.append(QStringLiteral("%1 (%2 dBm)")
                            .arg(fields.value(c_serialKey).toString(), fields.value(c_strengthKey).toString()));
    }
    return wrenches.isEmpty() ? QStringLiteral("no wrench was heard")
                              : QStringLiteral("heard were %1").arg(wrenches.join(QStringLiteral(", ")));
}
