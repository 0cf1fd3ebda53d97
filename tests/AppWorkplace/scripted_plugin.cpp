#include "scripted_plugin.h"

#include <QUuid>

#include "scripted_command.h"

ScriptedPlugin::ScriptedPlugin(const QString& name, const QMap<QString, Reaction>& reactions, QStringList* talk)
    : DAbstractPlugin(QUuid::createUuid(), "scripted", 0, 0, QUuid::createUuid(), nullptr, false)
    , m_name(name)
    , m_reactions(reactions)
    , m_talk(talk)
{}

bool ScriptedPlugin::publish(const QString& command, const QMap<QString, QVariant>& values)
{
    ScriptedCommand* found = running(command);
    return found != nullptr && found->publish(values);
}

bool ScriptedPlugin::isRunning(const QString& command) const
{
    return running(command) != nullptr;
}

void ScriptedPlugin::finish(const QString& command)
{
    if (ScriptedCommand* found = running(command)) {
        bool ok = true;
        found->finishTheCommand(ok);
    }
}

void ScriptedPlugin::initPluginCommands()
{
    for (auto reaction = m_reactions.cbegin(); reaction != m_reactions.cend(); ++reaction) {
        declareInstructionCommand(new ScriptedCommand(reaction.key(), {}, this));
    }
}

IPlugin* ScriptedPlugin::createInstance(const QUuid&) const
{
    return new ScriptedPlugin(m_name, m_reactions, m_talk);
}

ScriptedCommand* ScriptedPlugin::running(const QString& command) const
{
    const auto commands = findChildren<ScriptedCommand*>(QString(), Qt::FindDirectChildrenOnly);
    for (ScriptedCommand* each : commands) {
        if (each->isRunning() && each->commandName() == command) {
            return each;
        }
    }
    return nullptr;
}
