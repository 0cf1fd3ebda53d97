#include "workplace_command.h"

#include <QLoggingCategory>

#include <lib_plugins_management/d_abstract_plugin.h>

WorkplaceCommand::WorkplaceCommand(const CliContext& context) : CliCommand(context), m_workplace(context.settings)
{
    // Each of these commands says itself what is wrong with the line.
    if (!m_settings.isVerbose) {
        QLoggingCategory::setFilterRules(QStringLiteral("workplace.driver_serial.line.warning=false"));
    }
    connect(&m_workplace, &Workplace::sigOpened, this, [this] { begin(); });
    connect(&m_workplace, &Workplace::sigFailed, this, &WorkplaceCommand::workplaceFailed);
    connect(&m_workplace, &Workplace::sigNotice, this, [this](const QString& text) { m_console.message(text); });
}

void WorkplaceCommand::start()
{
    std::optional<Problem> problem = m_workplace.loadPlugins();
    for (const DPluginRefusal& refusal : m_workplace.plugins().refusals()) {
        m_console.message(refusal.message());
    }
    m_console.remark(
        tr("plugins from %1: %2").arg(Workplace::pluginFolder(m_settings), pluginNames().join(QStringLiteral(", "))));
    if (!problem) {
        problem = check();
    }
    if (problem) {
        fail(*problem);
        return;
    }
    m_workplace.open();
}

QStringList WorkplaceCommand::pluginNames() const
{
    QStringList names;
    for (const DAbstractPlugin* root : m_workplace.plugins().roots()) {
        names.append(QString::fromUtf8(root->pluginName()));
    }
    return names;
}

std::optional<Problem> WorkplaceCommand::check()
{
    return std::nullopt;
}

void WorkplaceCommand::workplaceFailed(const Problem& problem)
{
    fail(problem);
}

QString WorkplaceCommand::lineError() const
{
    return m_workplace.driver().getProperty(QStringLiteral("lineError"), QVariant()).toString();
}

void WorkplaceCommand::fail(const Problem& problem)
{
    tell(problem);
    Q_EMIT sigDone(problem.exitStatus());
}
