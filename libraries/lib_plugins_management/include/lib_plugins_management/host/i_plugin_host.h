#pragma once

#include <QString>
#include <QVariant>

class DAbstractPlugin;

/// What a plugin instance tells the host that it lives in.
class IPluginHost
{
public:
    virtual ~IPluginHost() = default;

    /// A property has another value than before.
    virtual void propertyChanged(DAbstractPlugin& plugin, const QString& name, const QVariant& value) = 0;
    /// The instance's configuration was written to.
    virtual void configurationChanged(DAbstractPlugin& plugin) = 0;
    /// The instance is being destroyed: only its address is still of use.
    virtual void pluginDestroyed(DAbstractPlugin& plugin) = 0;
};
