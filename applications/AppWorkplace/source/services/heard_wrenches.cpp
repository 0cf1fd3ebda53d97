#include "heard_wrenches.h"

#include <QCoreApplication>
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

QString HeardWrenches::whyNot(const QString& serialId) const
{
    QStringList others;
    const QVariantList heard = strongestFirst();
    for (const QVariant& wrench : heard) {
        const QVariantMap fields = wrench.toMap();
        if (fields.value(c_serialKey) == serialId) {
            return QCoreApplication::translate("HeardWrenches",
                                               "the wrench %1 was heard, but the link to it did not come about")
                .arg(serialId);
        }
        others.append(QCoreApplication::translate("HeardWrenches", "%1 (%2 dBm)")
                          .arg(fields.value(c_serialKey).toString(), fields.value(c_strengthKey).toString()));
    }
    return others.isEmpty() ? QCoreApplication::translate("HeardWrenches", "no wrench was heard")
                            : QCoreApplication::translate("HeardWrenches", "the wrench %1 was not heard, only %2")
                                  .arg(serialId, others.join(QStringLiteral(", ")));
}
