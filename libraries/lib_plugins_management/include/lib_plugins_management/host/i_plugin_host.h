#pragma once

#include <QString>
#include <QVariant>

#include <lib_plugins_management/export.h>

class DAbstractPlugin;

/// What a plugin instance tells the host that it lives in.
class LIB_PLUGINS_MANAGEMENT_EXPORT IPluginHost
{
public:
    virtual ~IPluginHost();

    /// A property has another value than before.
    virtual void propertyChanged(DAbstractPlugin& plugin, const QString& name, const QVariant& value) = 0;
    /// The instance's configuration was written to.
    virtual void configurationChanged(DAbstractPlugin& plugin) = 0;
    /// The instance is being destroyed: only its address is still of use.
    virtual void pluginDestroyed(DAbstractPlugin& plugin) = 0;
};
