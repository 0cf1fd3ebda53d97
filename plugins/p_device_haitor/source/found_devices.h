#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// One wrench as the dongle hears it during a scan. All of it is text as it stands in the dongle's line.
struct FoundDevice
{
    QString address; // with its colons
    QString serialNumber;
    QString signalStrength;

    /// Of a line "RESP <address> …" of at least five fields; of one with fewer: nothing.
    static std::optional<FoundDevice> fromLine(const QString& line);
};

/// The wrenches heard since the last clear(), one for each address.
class FoundDevices
{
public:
    /// Takes in the device that the line names, if it names one; an older entry of the same address is replaced.
    void addFromLine(const QString& line);
    void clear() { m_byAddress.clear(); }

    /// Maps with the texts "mac", "sn" and "rssi", in ascending order of the address.
    QVariantList toList() const;

private:
    QMap<QString, FoundDevice> m_byAddress;
};
