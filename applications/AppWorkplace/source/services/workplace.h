#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

#include <lib_plugins_management/host/d_host.h>
#include <lib_plugins_management/host/d_plugin_loader.h>
#include <lib_utilities/system_clock.h>

#include "device_store.h"
#include "problem.h"
#include "settings.h"
#include "simulator_process.h"

/// One workplace: the loaded plugins, one device of each device plugin, and the driver of the line that they share.
/// It knows plugins by their type and commands by their names.
class Workplace : public QObject
{
    Q_OBJECT

public:
    enum class Role { Device, Driver };

    explicit Workplace(const Settings& settings, QObject* parent = nullptr);
    ~Workplace() override;

    /// The folder that the plugins are loaded from.
    static QString pluginFolder(const Settings& settings);
    /// The folder for what is kept of devices.
    static QString dataFolder(const Settings& settings);

    /// Loads the plugins. What is refused is in plugins().refusals(); the others are there. A problem when they are
    /// not enough to work with.
    std::optional<Problem> loadPlugins();
    const DPluginLoader& plugins() const { return m_plugins; }
    static bool hasRole(const DAbstractPlugin& plugin, Role role);
    QList<const DAbstractPlugin*> rootsOf(Role role) const;
    /// The first plugin of that role with the command; null when there is none.
    const DAbstractPlugin* rootWith(const QString& command, Role role) const;

    /// Makes the devices and their driver, and for a simulated line its simulator first. Answers with sigOpened or
    /// sigFailed from a later turn of the event loop. The line itself is opened by its first use.
    void open();

    DHost& host() { return m_host; }
    Clock& clock() { return m_clock; }
    const Settings& settings() const { return m_settings; }
    /// The port in use: that of the simulator when the line is simulated.
    QString portInUse() const { return m_portInUse; }
    DAbstractPlugin& driver() const { return *m_driver; }
    /// The working instance of a plugin; null before the workplace is open.
    DAbstractPlugin* instanceOf(const DAbstractPlugin& root) const;

Q_SIGNALS:
    void sigOpened();
    /// It could not be opened, or is no longer open.
    void sigFailed(const Problem& problem);
    /// Something that a person should know and that stops nothing.
    void sigNotice(const QString& text);

private:
    void makeInstances(const QString& port);
    void fail(const QString& what, const QString& cause, const QString& mend);
    void saveDevice();

    Settings m_settings;
    SystemClock m_clock;
    DPluginLoader m_plugins;
    DHost m_host;
    DeviceStore m_store;
    std::unique_ptr<SimulatorProcess> m_simulator;
    QString m_portInUse;
    DAbstractPlugin* m_driver = nullptr;
    QList<DAbstractPlugin*> m_devices;
    bool m_saveIsDue = false;
};
