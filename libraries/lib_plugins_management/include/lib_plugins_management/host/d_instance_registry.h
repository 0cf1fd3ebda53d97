#pragma once

#include <QHash>
#include <QList>
#include <QUuid>

#include <lib_plugins_management/export.h>

class DAbstractPlugin;

/// The working instances and which of them drives which: where the target of an instruction is looked up.
/// It owns nothing.
class LIB_PLUGINS_MANAGEMENT_EXPORT DInstanceRegistry
{
public:
    void add(DAbstractPlugin& instance);
    void remove(const DAbstractPlugin& instance);
    /// The device's instructions to "driver" go to that instance from now on.
    void linkDriver(const DAbstractPlugin& device, DAbstractPlugin& driver);

    const QList<DAbstractPlugin*>& instances() const { return m_instances; }
    /// Null when there is none.
    DAbstractPlugin* byObjectUuid(const QUuid& uuid) const;
    DAbstractPlugin* byName(const QString& name) const;
    DAbstractPlugin* driverOf(const DAbstractPlugin& device) const;
    QList<DAbstractPlugin*> devicesOf(const DAbstractPlugin& driver) const;

    /// target: "driver", "myself" or the name of an instance, seen from the sender. Null when there is none.
    DAbstractPlugin* resolve(DAbstractPlugin& sender, const QString& target) const;

private:
    QList<DAbstractPlugin*> m_instances;
    QHash<const DAbstractPlugin*, DAbstractPlugin*> m_drivers; // by device
};
