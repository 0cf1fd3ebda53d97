#include "scripted_command.h"

#include "scripted_plugin.h"

ScriptedCommand::ScriptedCommand(const QString& name, const QMap<QString, QVariant>& parameters, ScriptedPlugin* plugin)
    : DAbstractCommand(name, name == QLatin1String("listenEventsData") ? QStringLiteral("stopListening") : QString(),
                       parameters, plugin)
    , m_plugin(plugin)
{}

bool ScriptedCommand::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    QStringList words{commandName()};
    const QMap<QString, QVariant> arguments = commandArguments();
    for (auto argument = arguments.cbegin(); argument != arguments.cend(); ++argument) {
        words.append(QStringLiteral("%1=%2").arg(argument.key(), argument.value().toString()));
    }
    m_plugin->write(words.join(QLatin1Char(' ')));
    m_isRunning = true;
    const Reaction reaction = m_plugin->reaction(commandName());
    if (reaction.beforehand) {
        reaction.beforehand();
    }
    switch (reaction.kind) {
    case Reaction::Kind::Answer: {
        m_isAnswered = true;
        publish(reaction.results);
        bool ok = true;
        finishTheCommand(ok);
        return true;
    }
    case Reaction::Kind::Silence:
        return true;
    case Reaction::Kind::Refusal:
        m_isRunning = false;
        return false;
    }
    Q_UNREACHABLE();
}

bool ScriptedCommand::finishTheCommand(bool& ok)
{
    m_isRunning = false;
    if (!m_isAnswered) {
        m_plugin->write(QStringLiteral("stopped %1").arg(commandName()));
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> ScriptedCommand::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new ScriptedCommand(commandName(), parameters, m_plugin));
}
