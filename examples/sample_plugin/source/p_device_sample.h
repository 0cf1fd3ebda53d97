#pragma once

#include <lib_plugins_management/d_abstract_plugin.h>

/// The sample device: identity, factory and the list of its commands.
class PDeviceSample : public DAbstractPlugin
{
    Q_OBJECT
    // The interface id ends with the name of the class: by that the host knows a plugin of its own.
    Q_PLUGIN_METADATA(IID "workplace.example.PDeviceSample")

public:
    explicit PDeviceSample(const QUuid& uuid = QUuid(), QObject* parent = nullptr);

    void initPluginCommands() override;
    IPlugin* createInstance(const QUuid& uuid) const override;
    const char* pluginSubTypeName() const override;
};
