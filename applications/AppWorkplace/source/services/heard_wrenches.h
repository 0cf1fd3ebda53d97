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

    /// "2210 (-58 dBm), 2211 (-71 dBm)", or that none was heard.
    QString inWords() const;

private:
    QMap<QString, QVariantMap> m_byAddress;
};
