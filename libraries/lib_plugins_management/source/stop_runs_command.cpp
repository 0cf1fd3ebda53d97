#include "stop_runs_command.h"

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_router.h>

namespace {
const QString c_successResult = QStringLiteral("cmd_success");
}

QSharedPointer<ICommand> StopRunsCommand::create(const QString& stopCommand, DRouter& router, DAbstractPlugin& plugin)
{
    auto* command = new StopRunsCommand(stopCommand, router, plugin);
    return QSharedPointer<ICommand>(command, [command](ICommand*) { delete command; });
}

StopRunsCommand::StopRunsCommand(const QString& stopCommand, DRouter& router, DAbstractPlugin& plugin)
    : DAbstractCommand(stopCommand, {}, nullptr), m_router(router), m_plugin(plugin)
{
    declareAResult(c_successResult, QStringLiteral("bool"), QStringLiteral("Success"), false);
}

bool StopRunsCommand::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_router.stopRuns(m_plugin, commandName());
    commandUpdateResult(c_successResult, true);
    bool ok = true;
    return commandFinish(ok);
}

QSharedPointer<ICommand> StopRunsCommand::createCommand(const QMap<QString, QVariant>& parameters) const
{
    Q_UNUSED(parameters)
    return create(commandName(), m_router, m_plugin);
}
