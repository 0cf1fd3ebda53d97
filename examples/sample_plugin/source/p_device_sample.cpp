#include "p_device_sample.h"

#include <lib_utilities/utilities.h>

#include "d_cmd_get_info.h"
#include "d_cmd_listen_text.h"
#include "d_cmd_send_text.h"

namespace {
const QUuid c_pluginUuid(QStringLiteral("{5f4dcb9e-6d0c-4c58-9d42-0a9a0d3f7a11}")); // made once, kept for ever
constexpr IPlugin::Type c_deviceType = 0x44657669;                                  // "Devi"
} // namespace

PDeviceSample::PDeviceSample(const QUuid& uuid, QObject* parent)
    : DAbstractPlugin(c_pluginUuid, "Sample device", c_deviceType,
                      versionFromString(QStringLiteral("1.0"), nullptr, QLatin1Char('.')), uuid, parent, false)
{}

void PDeviceSample::initPluginCommands()
{
    initAbstractCommands();
    declareInstructionCommand(new DCmdGetInfo({}, this));
    declareInstructionCommand(new DCmdSendText({}, this));
    declareInstructionCommand(new DCmdListenText({}, this));
    Q_EMIT sigCommandsInitDone(objectUuid(), commandNames());
}

IPlugin* PDeviceSample::createInstance(const QUuid& uuid) const
{
    return new PDeviceSample(uuid);
}

const char* PDeviceSample::pluginSubTypeName() const
{
    return "Sample";
}
