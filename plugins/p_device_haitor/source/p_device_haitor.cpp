#include "p_device_haitor.h"

#include <QDebug>
#include <qqml.h>

#include <lib_utilities/utilities.h>

#include "be_maintenance_plugin.h"
#include "d_cmd_checkSerialId.h"
#include "d_cmd_connectToDevice.h"
#include "d_cmd_getPresetData.h"
#include "d_cmd_keepAlive.h"
#include "d_cmd_listPrograms.h"
#include "d_cmd_listen.h"
#include "d_cmd_sendInitConfig.h"
#include "d_cmd_setKeepAliveFonction.h"
#include "d_cmd_setLock.h"
#include "d_cmd_setProgram.h"
#include "d_cmd_startDetection.h"
#include "d_haitor_channel.h"
#include "names.h"

namespace {

constexpr IPlugin::Type c_pluginType = 0x44657669; // D, e, v, i
constexpr bool c_notPersistent = false;

/// Makes a class known to the panels' QML. Doing it again, for each instance, is harmless.
template <class T>
void registerForPanels(const char* name)
{
    constexpr int c_major = 1;
    constexpr int c_minor = 0;
    qmlRegisterType<T>("PlgLibDeviceHaitor", c_major, c_minor, name);
}

} // namespace

PDeviceHaitor::PDeviceHaitor(const QUuid& uuid, QObject* parent)
    : DAbstractPlugin(getPluginId(), getPluginName(), getPluginType(),
                      versionFromString(QStringLiteral("1.0"), nullptr, QLatin1Char('.')), uuid, parent, false)
{
    registerForPanels<BeMaintenanceDeviceHaitor>("BeMaintenanceDeviceHaitor");
    setProperty(properties::c_typeName, QString::fromUtf8(pluginSubTypeName()), c_notPersistent);
    trace("DONE");
    registerForPanels<DHaitorChannel>("DHaitorChannel");
}

PDeviceHaitor::~PDeviceHaitor()
{
    trace("END");
}

QUuid PDeviceHaitor::getPluginId()
{
    return QUuid(QStringLiteral("{b3b68306-268a-4bce-b400-9f7c133e4cef}"));
}

const char* PDeviceHaitor::getPluginName()
{
    return "Plugin Device Haitor";
}

IPlugin::Type PDeviceHaitor::getPluginType()
{
    return c_pluginType;
}

void PDeviceHaitor::initPluginCommands()
{
    initAbstractCommands();
    declareInstructionCommand(new DCmdConnectToDevice(this));
    declareInstructionCommand(new DCmdListen(this));
    declareInstructionCommand(new DCmdGetPresetData(this));
    declareInstructionCommand(new DCmdStartDetection(this));
    declareInstructionCommand(new DCmdSendInitConfig(this));
    declareInstructionCommand(new DCmdListPrograms(this));
    declareInstructionCommand(new DCmdSetProgram(this));
    declareInstructionCommand(new DCmdSetLock(this));
    declareInstructionCommand(new DCmdKeepAlive(this));
    declareInstructionCommand(new DCmdSetKeepAliveFonction(this));
    declareInstructionCommand(new DCmdCheckSerialId(this));
    Q_EMIT sigCommandsInitDone(objectUuid(), commandNames());
}

IPlugin* PDeviceHaitor::createInstance(const QUuid& uuid) const
{
    return new PDeviceHaitor(uuid, nullptr);
}

const char* PDeviceHaitor::pluginSubTypeName() const
{
    return "";
}

void PDeviceHaitor::trace(const char* label) const
{
    constexpr int c_width = 8;
    constexpr int c_hexadecimal = 16;
    qDebug() << label << objectName()
             << QStringLiteral("0x%1").arg(reinterpret_cast<quintptr>(this), c_width, c_hexadecimal, QLatin1Char('0'))
             << objectUuid() << pluginName();
}
