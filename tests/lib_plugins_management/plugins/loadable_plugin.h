#pragma once

#include <lib_plugins_management/d_abstract_command.h>
#include <lib_plugins_management/d_abstract_plugin.h>

/// A command that does nothing, and a plugin that has it: what the plugin files of the loader's tests are made of.
class IdleCommand : public DAbstractCommand
{
public:
    explicit IdleCommand(QObject* parent) : DAbstractCommand(QStringLiteral("idle"), {}, parent) {}

    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>&) const override
    {
        return QSharedPointer<IdleCommand>::create(parent());
    }
};

class LoadablePlugin : public DAbstractPlugin
{
public:
    LoadablePlugin() : DAbstractPlugin(QUuid(), "Loadable", 0x54657374, 0, QUuid(), nullptr, false) {}

    void initPluginCommands() override { declareInstructionCommand(new IdleCommand(this)); }
    IPlugin* createInstance(const QUuid&) const override { return new LoadablePlugin; }
    const char* pluginSubTypeName() const override { return "Loadable"; }
};
