#include <lib_plugins_management/host/d_host.h>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "d_abstract_plugin_p.h"

IPluginHost::~IPluginHost() = default;

DHost::DHost(Clock& clock, QObject* parent)
    : QObject(parent), m_router(clock, m_instances), m_treatments(m_router, m_instances)
{}

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
    IPlugin* made = root.createInstance(uuid);
    auto* instance = dynamic_cast<DAbstractPlugin*>(made);
    if (instance == nullptr) {
        delete made;
        return nullptr;
    }
    instance->setParent(this);
    if (!config.isNull()) {
        instance->setMainConfig(std::move(config));
    }
    DAbstractPluginPrivate::get(*instance)->host = this;
    instance->initPluginCommands();
    m_instances.add(*instance);
    m_treatments.instanceAdded(*instance);
    return instance;
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
