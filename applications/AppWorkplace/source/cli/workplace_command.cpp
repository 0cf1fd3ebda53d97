#include "workplace_command.h"

WorkplaceCommand::WorkplaceCommand(const CliContext& context) : CliCommand(context), m_workplace(context.settings)
{
    connect(&m_workplace, &Workplace::sigOpened, this, [this] { begin(); });
    connect(&m_workplace, &Workplace::sigFailed, this, &WorkplaceCommand::fail);
    connect(&m_workplace, &Workplace::sigNotice, this, [this](const QString& text) { m_console.message(text); });
}

void WorkplaceCommand::start()
{
    m_workplace.loadPlugins();
    for (const DPluginRefusal& refusal : m_workplace.plugins().refusals()) {
        m_console.message(refusal.message());
    }
    m_workplace.open();
}

void WorkplaceCommand::fail(const Problem& problem)
{
    tell(problem);
    Q_EMIT sigDone(problem.exitStatus());
}
