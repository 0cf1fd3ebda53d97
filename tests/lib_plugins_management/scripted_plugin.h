#pragma once

#include <QUuid>

#include <functional>
#include <vector>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "scripted_command.h"

/// A plugin whose commands follow scripts. Its instances share the scripts of their root.
class ScriptedPlugin : public DAbstractPlugin
{
    Q_OBJECT

public:
    /// name: what the instances are called.
    explicit ScriptedPlugin(const char* name, const QUuid& instance = {}, QObject* parent = nullptr);
    ~ScriptedPlugin() override;

    /// A command that later instances will have.
    ScriptPointer addCommand(const QString& name, const QString& stopName = {});

    void initPluginCommands() override;
    IPlugin* createInstance(const QUuid& uuid) const override;
    const char* pluginSubTypeName() const override;

    std::function<void()> onDestruction; ///< called by the destructor while all of the instance is still there

private:
    std::vector<ScriptPointer> m_scripts;
};
