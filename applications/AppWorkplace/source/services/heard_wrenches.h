#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

/// The wrenches that a scan has heard, each once, with its latest signal strength.
class HeardWrenches
{
public:
    /// False when this tells nothing new.
    bool add(const QString& address, const QString& serialId, const QString& signalStrength);
    bool isEmpty() const { return m_byAddress.isEmpty(); }

    /// Maps of "mac", "sn" and "rssi" as heard, the strongest signal first.
    QVariantList strongestFirst() const;
    /// The same for a list of such maps.
    static QVariantList strongestFirst(QVariantList wrenches);

    /// Why that wrench is not connected, as far as the scan can tell.
    QString whyNot(const QString& serialId) const;

private:
    QMap<QString, QVariantMap> m_byAddress;
};
