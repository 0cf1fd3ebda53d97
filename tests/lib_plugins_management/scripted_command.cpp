#include "scripted_command.h"

#include <QPointer>

ScriptedCommand::ScriptedCommand(ScriptPointer script, const Values& parameters, QObject* parent)
    : DAbstractCommand(script->name, script->stopName, parameters, parent), m_script(std::move(script))
{
    if (m_script->declare) {
        m_script->declare(*this);
    }
}

ScriptedCommand::~ScriptedCommand()
{
    ++m_script->destroyed;
    if (m_script->last == this) {
        m_script->last = nullptr;
        if (m_script->destroy) {
            m_script->destroy(*this);
        }
    }
}

bool ScriptedCommand::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    const ScriptPointer script = m_script; // the script may delete this command
    ++script->executed;
    script->arguments.append(commandArguments());
    script->last = this;
    return !script->execute || script->execute(*this);
}

bool ScriptedCommand::finishTheCommand(bool& ok)
{
    const ScriptPointer script = m_script;
    ++script->finished;
    return script->finish ? script->finish(*this, ok) : DAbstractCommand::finishTheCommand(ok);
}

QSharedPointer<ICommand> ScriptedCommand::createCommand(const Values& parameters) const
{
    auto* command = new ScriptedCommand(m_script, parameters, parent());
    return m_script->share ? m_script->share(command) : shareGuarded(command);
}

QSharedPointer<ICommand> ScriptedCommand::shareGuarded(ScriptedCommand* command)
{
    const auto guard = std::make_shared<QPointer<QObject>>(command);
    return QSharedPointer<ICommand>(command, [guard](ICommand*) { delete guard->data(); });
}

quint64 ScriptedCommand::ask(const QString& target, const QString& instruction, const Values& parameters, int limitMs)
{
    return addInstruction(target, instruction, parameters, limitMs, delegate());
}

quint64 ScriptedCommand::subscribe(const QString& target, const QString& instruction, int limitMs)
{
    return ask(target, instruction, {{QStringLiteral("subscription"), true}}, limitMs);
}

bool ScriptedCommand::onReply(quint64 instructionId, const Values& reply)
{
    const ScriptPointer script = m_script;
    script->replyIds.append(instructionId);
    script->replies.append(reply);
    if (script->onReply) {
        script->onReply(*this, instructionId);
    }
    return true;
}
