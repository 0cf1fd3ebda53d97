#include <lib_plugins_management/host/d_instance_registry.h>

#include <algorithm>

#include <lib_plugins_management/d_abstract_plugin.h>

namespace {

template <class Predicate>
DAbstractPlugin* find(const QList<DAbstractPlugin*>& instances, Predicate matches)
{
    const auto found = std::find_if(instances.cbegin(), instances.cend(), matches);
    return found == instances.cend() ? nullptr : *found;
}

} // namespace

void DInstanceRegistry::add(DAbstractPlugin& instance)
{
    if (!m_instances.contains(&instance)) {
        m_instances.append(&instance);
    }
}

void DInstanceRegistry::remove(const DAbstractPlugin& instance)
{
    m_instances.removeAll(const_cast<DAbstractPlugin*>(&instance));
    m_drivers.remove(&instance);
    for (auto link = m_drivers.begin(); link != m_drivers.end();) {
        link = *link == &instance ? m_drivers.erase(link) : std::next(link);
    }
}

void DInstanceRegistry::linkDriver(const DAbstractPlugin& device, DAbstractPlugin& driver)
{
    m_drivers.insert(&device, &driver);
}

DAbstractPlugin* DInstanceRegistry::byObjectUuid(const QUuid& uuid) const
{
    return find(m_instances, [&](const DAbstractPlugin* each) { return each->objectUuid() == uuid; });
}

DAbstractPlugin* DInstanceRegistry::byName(const QString& name) const
{
    return find(m_instances, [&](const DAbstractPlugin* each) { return each->getName() == name; });
}

DAbstractPlugin* DInstanceRegistry::driverOf(const DAbstractPlugin& device) const
{
    return m_drivers.value(&device);
}

QList<DAbstractPlugin*> DInstanceRegistry::devicesOf(const DAbstractPlugin& driver) const
{
    QList<DAbstractPlugin*> devices;
    std::copy_if(m_instances.cbegin(), m_instances.cend(), std::back_inserter(devices),
                 [&](const DAbstractPlugin* each) { return driverOf(*each) == &driver; });
    return devices;
}

DAbstractPlugin* DInstanceRegistry::resolve(DAbstractPlugin& sender, const QString& target) const
{
    if (target == QLatin1String("myself")) {
        return &sender;
    }
    return target == QLatin1String("driver") ? driverOf(sender) : byName(target);
}
