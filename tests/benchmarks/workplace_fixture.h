#pragma once

#include <QJsonObject>
#include <QUuid>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>
#include <lib_plugins_management/host/d_plugin_loader.h>
#include <lib_utilities/system_clock.h>

/// The built plugins in a host.
class WorkplaceFixture
{
public:
    WorkplaceFixture() : host(clock)
    {
        loader.loadFolder(QStringLiteral(PLUGIN_FOLDER));
        for (DAbstractPlugin* root : loader.roots()) {
            const bool isDriver = root->commandNames().contains(QStringLiteral("closeConnection"));
            (isDriver ? driverRoot : deviceRoot) = root;
        }
        if (driverRoot == nullptr || deviceRoot == nullptr) {
            qFatal("the plugins are not built");
        }
    }

    /// With one device, and its driver on a port.
    explicit WorkplaceFixture(const QString& port) : WorkplaceFixture() { addDevice(port); }

    /// Another device, and its driver on a port; from then on it is the one that device and driver are.
    void addDevice(const QString& port)
    {
        auto configuration = QSharedPointer<QJsonObject>::create();
        configuration->insert(driverRoot->pluginUuid().toString(), QJsonObject{{QStringLiteral("port"), port}});
        driver = host.createInstance(*driverRoot, QUuid::createUuid(), configuration);
        device = host.createInstance(*deviceRoot, QUuid::createUuid());
        host.linkDriver(*device, *driver);
    }

    SystemClock clock;
    DPluginLoader loader;
    DHost host;
    DAbstractPlugin* driverRoot = nullptr;
    DAbstractPlugin* deviceRoot = nullptr;
    DAbstractPlugin* driver = nullptr;
    DAbstractPlugin* device = nullptr;
};
