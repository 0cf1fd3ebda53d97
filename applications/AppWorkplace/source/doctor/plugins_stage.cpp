#include "plugins_stage.h"

#include <lib_plugins_management/d_abstract_plugin.h>

#include "../services/workplace.h"

namespace {

struct NeededCommand
{
    Workplace::Role role;
    const char* name;
};
constexpr NeededCommand c_neededCommands[] = {
    {Workplace::Role::Driver, "write"},           {Workplace::Role::Driver, "listenEventsData"},
    {Workplace::Role::Driver, "closeConnection"}, {Workplace::Role::Device, "listenEventsData"},
    {Workplace::Role::Device, "listProgram"},     {Workplace::Role::Device, "sendInitConfig"},
};
const QString c_deviceCommand = QStringLiteral("listenEventsData");

} // namespace

PluginsStage::PluginsStage(DoctorBench& bench, Workplace& workplace)
    : DoctorStage({QStringLiteral("plugins"), tr("the libraries fit, the plugins load and make their devices"), {}},
                  Problem::Kind::SetUp, bench)
    , m_workplace(workplace)
{}

void PluginsStage::start()
{
    const std::optional<Problem> problem = m_workplace.loadPlugins();
    if (problem) {
        failUnloaded(*problem);
        return;
    }
    for (const DPluginRefusal& refusal : m_workplace.plugins().refusals()) {
        Q_EMIT sigNotice(refusal.message());
    }
    if (!hasCommands()) {
        return;
    }
    connect(&m_workplace, &Workplace::sigOpened, this, &PluginsStage::opened);
    connect(&m_workplace, &Workplace::sigFailed, this, [this](const Problem& failure) {
        stop();
        fail(failure);
    });
    m_workplace.open();
}

void PluginsStage::stop()
{
    m_workplace.disconnect(this);
}

/// With what the loader has against each file that it refused.
void PluginsStage::failUnloaded(const Problem& problem)
{
    const QList<DPluginRefusal>& refusals = m_workplace.plugins().refusals();
    if (refusals.size() == 1) {
        const DPluginRefusal& refusal = refusals.constFirst();
        fail(problem.what, tr("%1: %2").arg(refusal.file, refusal.cause), refusal.mend);
        return;
    }
    QStringList causes;
    for (const DPluginRefusal& refusal : refusals) {
        causes.append(refusal.message());
    }
    fail(problem.what, causes.isEmpty() ? problem.cause : causes.join(QStringLiteral("; ")), problem.mend);
}

bool PluginsStage::hasCommands()
{
    for (const NeededCommand& needed : c_neededCommands) {
        if (m_workplace.rootWith(QLatin1String(needed.name), needed.role) == nullptr) {
            fail(needed.role == Workplace::Role::Driver ? tr("the driver plugin cannot be used here")
                                                        : tr("the device plugin cannot be used here"),
                 tr("it has no command \"%1\"").arg(QLatin1String(needed.name)),
                 tr("name the folder of the right plugins with --plugins"));
            return false;
        }
    }
    return true;
}

void PluginsStage::opened()
{
    stop();
    m_bench.driver = &m_workplace.driver();
    m_bench.device = m_workplace.instanceOf(*m_workplace.rootWith(c_deviceCommand, Workplace::Role::Device));
    QStringList names;
    for (const DAbstractPlugin* root : m_workplace.plugins().roots()) {
        names.append(QLatin1String(root->pluginName()));
    }
    pass(tr("%1; Qt %2").arg(names.join(QStringLiteral(", ")), QLatin1String(qVersion())));
}
