#pragma once

#include <QtPlugin>

#include <lib_plugins_management/d_abstract_plugin.h>

/// The plugin object: who the plugin is, how the host makes further instances, and which commands it has. It keeps
/// nothing itself; what commands share stands in the properties of the base class.
class PDeviceHaitor final : public DAbstractPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "fr.vexa.rd.box.PDeviceHaitor")

public:
    /// uuid: of this instance; null for the root instance, which Qt makes when the library is loaded.
    explicit PDeviceHaitor(const QUuid& uuid = QUuid(), QObject* parent = nullptr);
    ~PDeviceHaitor() override;

    static QUuid getPluginId();
    static const char* getPluginName();
    static IPlugin::Type getPluginType();

    void initPluginCommands() override;
    /// A new instance without a parent, owned by the caller.
    IPlugin* createInstance(const QUuid& uuid) const override;
    /// Empty: there is one type only.
    const char* pluginSubTypeName() const override;

private:
    void trace(const char* label) const;
};
