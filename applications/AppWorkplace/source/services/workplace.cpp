#include "workplace.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "driver_settings.h"
#include "language.h"
#include "translations.h"

namespace {

// Plugins say what they are with a four-character code.
constexpr IPlugin::Type c_deviceType = 0x44657669; // "Devi"
constexpr IPlugin::Type c_driverType = 0x44726976; // "Driv"

QString defaultPluginFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString built = program.absoluteFilePath(QStringLiteral("../lib/plugins"));
    return QDir(built).exists() ? QDir::cleanPath(built)
                                : QDir::cleanPath(program.absoluteFilePath(QStringLiteral(WORKPLACE_PLUGIN_FOLDER)));
}

/// Empty: nothing is kept. A simulated wrench is made anew for each command and remembers nothing; so do we of it.
QString deviceFolder(const Settings& settings)
{
    return settings.isSimulated() ? QString() : Workplace::dataFolder(settings);
}

} // namespace

Workplace::Workplace(const Settings& settings, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
    , m_host(m_clock)
    , m_store(deviceFolder(settings), settings.serialId.isEmpty() ? QStringLiteral("device") : settings.serialId)
{
    connect(&m_host, &DHost::sigConfigurationChanged, this, [this](const DAbstractPlugin* plugin) {
        if (plugin != m_driver && !m_saveIsDue) {
            m_saveIsDue = true; // once for all that a turn of the event loop changes
            QTimer::singleShot(0, this, &Workplace::saveDevice);
        }
    });
}

Workplace::~Workplace()
{
    if (m_saveIsDue) {
        saveDevice();
    }
}

QString Workplace::pluginFolder(const Settings& settings)
{
    return settings.pluginFolder.isEmpty() ? defaultPluginFolder() : settings.pluginFolder;
}

QString Workplace::dataFolder(const Settings& settings)
{
    return settings.dataFolder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                                         : settings.dataFolder;
}

std::optional<Problem> Workplace::loadPlugins()
{
    m_plugins.loadFolder(pluginFolder(m_settings));
    translations::install(language::choose(m_settings).name);
    for (const Role role : {Role::Driver, Role::Device}) {
        if (rootsOf(role).isEmpty()) {
            return Problem{Problem::Kind::SetUp, QStringLiteral("open"),
                           role == Role::Driver ? tr("there is no driver plugin") : tr("there is no device plugin"),
                           tr("none could be loaded from %1").arg(pluginFolder(m_settings)),
                           tr("name the folder of the plugins with --plugins")};
        }
    }
    return checkDriverSettings(*rootsOf(Role::Driver).constFirst(), m_settings);
}

bool Workplace::hasRole(const DAbstractPlugin& plugin, Role role)
{
    return plugin.pluginType() == (role == Role::Driver ? c_driverType : c_deviceType);
}

QList<const DAbstractPlugin*> Workplace::rootsOf(Role role) const
{
    QList<const DAbstractPlugin*> roots;
    for (const DAbstractPlugin* root : m_plugins.roots()) {
        if (hasRole(*root, role)) {
            roots.append(root);
        }
    }
    return roots;
}

const DAbstractPlugin* Workplace::rootWith(const QString& command, Role role) const
{
    const QList<const DAbstractPlugin*> roots = rootsOf(role);
    const auto found = std::find_if(roots.cbegin(), roots.cend(), [&](const DAbstractPlugin* root) {
        return root->commandNames().contains(command);
    });
    return found == roots.cend() ? nullptr : *found;
}

DAbstractPlugin* Workplace::instanceOf(const DAbstractPlugin& root) const
{
    if (m_driver != nullptr && m_driver->pluginUuid() == root.pluginUuid()) {
        return m_driver;
    }
    const auto found = std::find_if(m_devices.cbegin(), m_devices.cend(), [&](const DAbstractPlugin* device) {
        return device->pluginUuid() == root.pluginUuid();
    });
    return found == m_devices.cend() ? nullptr : *found;
}

void Workplace::open()
{
    if (!m_settings.isSimulated()) {
        QTimer::singleShot(0, this, [this] { makeInstances(m_settings.port); });
        return;
    }
    m_simulator = std::make_unique<SimulatorProcess>();
    connect(m_simulator.get(), &SimulatorProcess::sigReady, this, &Workplace::makeInstances);
    connect(m_simulator.get(), &SimulatorProcess::sigFailed, this, [this](const QString& cause) {
        if (m_portInUse.isEmpty() && m_settings.hasScenario()) {
            fail(tr("the scenario %1 is not used").arg(m_settings.scenarioFile()), cause,
                 tr("mend the file, or name another one with --port simulated:FILE"));
        } else if (m_portInUse.isEmpty() && !m_settings.serialId.isEmpty() && !m_simulator->refusal().isEmpty()) {
            fail(tr("the simulated wrench cannot have the serial number \"%1\"").arg(m_settings.serialId),
                 m_simulator->refusal(), tr("name another one with --serial-id"));
        } else if (m_portInUse.isEmpty()) {
            fail(tr("the simulated wrench is not there"), cause,
                 tr("build or install wrench_simulator beside this program, or name a port with --port"));
        } else {
            fail(tr("the simulated wrench has gone"), cause, tr("start again"));
        }
    });
    m_simulator->start(m_settings);
}

void Workplace::makeInstances(const QString& port)
{
    m_portInUse = port;
    QString cause;
    if (!m_store.load(&cause)) {
        fail(tr("the device's stored state %1 is not used").arg(m_store.file()), cause,
             tr("move it away, or name another folder with --data"));
        return;
    }
    QJsonObject section = m_settings.driver;
    section.insert(QStringLiteral("port"), port);
    if (!m_settings.traceFile.isEmpty()) {
        section.insert(QStringLiteral("trace"), m_settings.traceFile);
    }
    const DAbstractPlugin& driver = *rootsOf(Role::Driver).constFirst();
    auto configuration = QSharedPointer<QJsonObject>::create();
    configuration->insert(driver.pluginUuid().toString(), section);
    m_driver = m_host.createInstance(driver, QUuid::createUuid(), configuration);
    const QList<const DAbstractPlugin*> devices = rootsOf(Role::Device);
    for (const DAbstractPlugin* root : devices) {
        m_devices.append(m_host.createInstance(*root, QUuid::createUuid(), m_store.configuration()));
    }
    if (m_driver == nullptr || m_devices.contains(nullptr)) {
        fail(tr("a plugin makes no instance for this workplace"), {}, tr("name another folder with --plugins"));
        return;
    }
    for (const DAbstractPlugin* device : qAsConst(m_devices)) {
        m_host.linkDriver(*device, *m_driver);
    }
    Q_EMIT sigOpened();
}

void Workplace::fail(const QString& what, const QString& cause, const QString& mend)
{
    Q_EMIT sigFailed({Problem::Kind::SetUp, QStringLiteral("open"), what, cause, mend});
}

void Workplace::saveDevice()
{
    m_saveIsDue = false;
    QString cause;
    if (!m_store.save(&cause)) {
        Q_EMIT sigNotice(tr("the device's state cannot be stored in %1: %2; name another folder with --data")
                             .arg(m_store.file(), cause));
    }
}
