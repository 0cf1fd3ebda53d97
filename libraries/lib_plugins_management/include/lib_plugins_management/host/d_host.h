#pragma once

#include <QJsonObject>
#include <QObject>
#include <QSharedPointer>
#include <QUuid>
#include <QVariant>

#include <memory>

#include <lib_plugins_management/d_abstract_plugin.h> // whole, so that signals may be queued with it
#include <lib_plugins_management/export.h>
#include <lib_plugins_management/host/d_instance_registry.h>
#include <lib_plugins_management/host/d_order.h>
#include <lib_plugins_management/host/d_router.h>
#include <lib_plugins_management/host/d_treatment_queue.h>
#include <lib_plugins_management/host/i_plugin_host.h>

class Clock;

/// The host as an application uses it: makes working instances of plugins, links devices with their drivers and runs
/// commands. It owns the instances that it makes. One thread, the one of its event loop.
class LIB_PLUGINS_MANAGEMENT_EXPORT DHost : public QObject, private IPluginHost
{
    Q_OBJECT

public:
    /// The clock outlives the host.
    explicit DHost(Clock& clock, QObject* parent = nullptr);
    ~DHost() override;

    /// A working instance with its commands declared. config: the device's configuration, shared with the caller.
    /// Null when the plugin makes none, or throws while it does (the log says what).
    DAbstractPlugin* createInstance(const DAbstractPlugin& root, const QUuid& uuid,
                                    QSharedPointer<QJsonObject> config = {});
    /// The device's instructions to "driver" go to that instance from now on. Both are instances of this host.
    void linkDriver(const DAbstractPlugin& device, DAbstractPlugin& driver);
    const DInstanceRegistry& instances() const { return m_instances; }

    /// An order for one run, not started yet; the caller owns it. Null when the plugin has no such command.
    std::unique_ptr<DOrder> createOrder(DAbstractPlugin& plugin, const QString& command,
                                        const QMap<QString, QVariant>& parameters = {});

Q_SIGNALS:
    void sigPropertyChanged(DAbstractPlugin* plugin, const QString& name, const QVariant& value);
    void sigConfigurationChanged(DAbstractPlugin* plugin);
    /// A panel's treatment of that device runs from now on.
    void sigTreatmentStarted(DAbstractPlugin* device, const QString& treatment);
    /// It has ended, before the panel hears of it; each that was started does, unless its device is gone.
    void sigTreated(DAbstractPlugin* device, const QString& treatment, const QVariantMap& parameters,
                    const QVariantMap& reply);

private:
    void propertyChanged(DAbstractPlugin& plugin, const QString& name, const QVariant& value) override;
    void configurationChanged(DAbstractPlugin& plugin) override;
    void pluginDestroyed(DAbstractPlugin& plugin) override;

    DInstanceRegistry m_instances;
    DRouter m_router;
    DTreatmentQueue m_treatments;
};
