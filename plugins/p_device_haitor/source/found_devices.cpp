#include "found_devices.h"

#include <QStringList>

namespace {

// RESP <address> <model> <serial number> <signal strength>: positions after the cut at blanks.
constexpr int c_addressField = 1;
constexpr int c_serialNumberField = 3;
constexpr int c_signalStrengthField = 4;
constexpr int c_fewestFields = 5;

} // namespace

std::optional<FoundDevice> FoundDevice::fromLine(const QString& line)
{
    const QStringList fields = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (fields.size() < c_fewestFields) {
        return std::nullopt;
    }
    return FoundDevice{fields.at(c_addressField), fields.at(c_serialNumberField), fields.at(c_signalStrengthField)};
}

void FoundDevices::addFromLine(const QString& line)
{
    if (const std::optional<FoundDevice> device = FoundDevice::fromLine(line)) {
        m_byAddress.insert(device->address, *device);
    }
}

QVariantList FoundDevices::toList() const
{
    QVariantList list;
    for (const FoundDevice& device : m_byAddress) {
        list.append(QVariantMap{{QStringLiteral("mac"), device.address},
                                {QStringLiteral("sn"), device.serialNumber},
                                {QStringLiteral("rssi"), device.signalStrength}});
    }
    return list;
}
