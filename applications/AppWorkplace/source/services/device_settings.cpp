#include "device_settings.h"

#include <QCoreApplication>

namespace {

const QString c_standardError = QStringLiteral("-");

Problem refusal(const QString& what)
{
    return {Problem::Kind::Usage,
            QStringLiteral("command line"),
            what,
            {},
            QCoreApplication::translate("DeviceSettings", "name each as PORT or PORT,NUMBER, each port once")};
}

Settings settingsOf(const QString& name, int number, const Settings& common)
{
    Settings device = common;
    const int comma = name.lastIndexOf(QLatin1Char(','));
    device.deviceNumber = number;
    device.port = comma < 0 ? name : name.left(comma);
    device.serialId = comma < 0 ? QString() : name.mid(comma + 1);
    if (device.serialId.isEmpty() && device.isSimulated() && !device.hasScenario()) {
        device.simulatedSerialId = QString::number(Settings().simulatedSerialId.toInt() + number - 1);
        device.serialId = device.simulatedSerialId; // the simulator is told
    } else if (device.hasScenario()) {
        device.simulatedSerialId.clear(); // its wrenches are in range, whichever they are
    }
    if (number > 1 && !common.traceFile.isEmpty() && common.traceFile != c_standardError) {
        device.traceFile = QStringLiteral("%1.%2").arg(common.traceFile).arg(number);
    }
    return device;
}

} // namespace

std::optional<Problem> readDevices(const QStringList& names, const Settings& settings, QList<Settings>* devices)
{
    if (names.isEmpty()) {
        *devices = {settings};
        return std::nullopt;
    }
    QStringList ports;
    for (const QString& name : names) {
        const Settings device = settingsOf(name, devices->size() + 1, settings);
        if (device.port.isEmpty()) {
            return refusal(QCoreApplication::translate("DeviceSettings", "the device \"%1\" has no port").arg(name));
        }
        if (device.lacksScenarioFile()) {
            return refusal(
                QCoreApplication::translate("DeviceSettings", "the device \"%1\" names no scenario").arg(name));
        }
        if (!device.isSimulated() && ports.contains(device.port)) {
            return refusal(
                QCoreApplication::translate("DeviceSettings", "two devices have the port %1").arg(device.port));
        }
        ports.append(device.port);
        devices->append(device);
    }
    return std::nullopt;
}
