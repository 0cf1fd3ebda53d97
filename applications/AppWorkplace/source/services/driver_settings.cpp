#include "driver_settings.h"

#include <QCoreApplication>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "configuration_file.h"

namespace {

/// They have a place of their own in the configuration.
bool isSetByTheWorkplace(const QString& name)
{
    return name == QLatin1String("port") || name == QLatin1String("trace");
}

} // namespace

QVariantList driverSettings(const DAbstractPlugin& driver)
{
    QVariantList settings;
    const QVariantList all = driver.getProperty(QStringLiteral("settings"), QVariant()).toList();
    for (const QVariant& setting : all) {
        if (!isSetByTheWorkplace(setting.toMap().value(QStringLiteral("name")).toString())) {
            settings.append(setting);
        }
    }
    return settings;
}

std::optional<Problem> checkDriverSettings(const DAbstractPlugin& driver, const Settings& settings)
{
    QStringList known;
    const QVariantList all = driverSettings(driver);
    for (const QVariant& setting : all) {
        known.append(setting.toMap().value(QStringLiteral("name")).toString());
    }
    if (known.isEmpty()) {
        return std::nullopt;
    }
    for (auto entry = settings.driver.begin(); entry != settings.driver.end(); ++entry) {
        if (!known.contains(entry.key())) {
            const SettingOrigin origin = settings.origins.value(QStringLiteral("driver.") + entry.key());
            const QString mend =
                isSetByTheWorkplace(entry.key())
                    ? QCoreApplication::translate("DriverSettings", "write \"%1\" beside \"driver\"").arg(entry.key())
                    : QCoreApplication::translate("DriverSettings", "known are: %1")
                          .arg(known.join(QStringLiteral(", ")));
            return configuration::refusal(
                origin.source, origin.line,
                QCoreApplication::translate("DriverSettings", "\"%1\" is no setting of the driver").arg(entry.key()),
                mend);
        }
    }
    return std::nullopt;
}
