#pragma once

#include <lib_plugins_management/d_abstract_command.h>

class ScriptedPlugin;

/// One command of a scripted plugin: it does what the plugin's reaction for it says.
class ScriptedCommand : public DAbstractCommand
{
    Q_OBJECT

public:
    ScriptedCommand(const QString& name, const QMap<QString, QVariant>& parameters, ScriptedPlugin* plugin);

    bool isRunning() const { return m_isRunning; }
    bool publish(const QMap<QString, QVariant>& values) { return commandUpdateResults(values); }

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    ScriptedPlugin* m_plugin;
    bool m_isRunning = false;
    bool m_isAnswered = false;
};
