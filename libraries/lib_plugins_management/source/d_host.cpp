#include <lib_plugins_management/host/d_host.h>

#include <exception>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "d_abstract_plugin_p.h"
#include "logging.h"

IPluginHost::~IPluginHost() = default;

DHost::DHost(Clock& clock, QObject* parent)
    : QObject(parent), m_router(clock, m_instances), m_treatments(m_router, m_instances)
{
    connect(&m_treatments, &DTreatmentQueue::sigTreatmentStarted, this, &DHost::sigTreatmentStarted);
    connect(&m_treatments, &DTreatmentQueue::sigTreated, this, &DHost::sigTreated);
}

DHost::~DHost()
{
    // While router and registry are still there to hear of it. A device goes before the driver that it uses: it was
    // linked later.
    while (!m_instances.instances().isEmpty()) {
        delete m_instances.instances().constLast(); // leaves the registry as it goes, and may take others with it
    }
}

DAbstractPlugin* DHost::createInstance(const DAbstractPlugin& root, const QUuid& uuid,
                                       QSharedPointer<QJsonObject> config)
{
    try {
        std::unique_ptr<IPlugin> made(root.createInstance(uuid));
        auto* instance = dynamic_cast<DAbstractPlugin*>(made.get());
        if (instance == nullptr) {
            return nullptr;
        }
        if (!config.isNull()) {
            instance->setMainConfig(std::move(config));
        }
        DAbstractPluginPrivate::get(*instance)->host = this;
        instance->initPluginCommands();
        made.release(); // NOLINT(bugprone-unused-return-value): the parent owns it from here on
        instance->setParent(this);
        m_instances.add(*instance);
        m_treatments.instanceAdded(*instance);
        return instance;
    } catch (const std::exception& error) {
        qCCritical(lcPluginsManagement).noquote()
            << QStringLiteral("%1 makes no instance %2 (%3); ask the plugin's maker for a mended one")
                   .arg(root.getDebugIdentification(), uuid.toString(), QString::fromUtf8(error.what()));
        return nullptr;
    }
}

void DHost::linkDriver(const DAbstractPlugin& device, DAbstractPlugin& driver)
{
    m_instances.linkDriver(device, driver);
    Q_EMIT m_treatments.sigConnectionChanged();
}

std::unique_ptr<DOrder> DHost::createOrder(DAbstractPlugin& plugin, const QString& command,
                                           const QMap<QString, QVariant>& parameters)
{
    return m_router.createOrder(plugin, command, parameters);
}

void DHost::propertyChanged(DAbstractPlugin& plugin, const QString& name, const QVariant& value)
{
    m_treatments.propertyChanged(plugin, name);
    Q_EMIT sigPropertyChanged(&plugin, name, value);
}

void DHost::configurationChanged(DAbstractPlugin& plugin)
{
    Q_EMIT sigConfigurationChanged(&plugin);
}

void DHost::pluginDestroyed(DAbstractPlugin& plugin)
{
    m_router.pluginDestroyed(plugin);
    m_instances.remove(plugin); // before anybody hears of it and looks there
    m_treatments.pluginDestroyed(plugin);
}
