#include "d_cmd_getPresetData.h"

#include <algorithm>

#include "command_factory.h"
#include "log_line.h"
#include "names.h"
#include "p_device_haitor.h"
#include "program_fields.h"

DCmdGetPresetData::DCmdGetPresetData(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(commands::c_getPresetData, parameters, parent)
{
    setDescription(QStringLiteral("Get the configuration of a preset from the stored program list"));
    declareAParameter(keys::c_progId, types::c_uint, QStringLiteral("The id of the program"), 1);
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Success of the command"), false);
    declareAResult(keys::c_presetData, types::c_map, QStringLiteral("the presets data"), QVariant());
}

DCmdGetPresetData::DCmdGetPresetData(QObject* parent) : DCmdGetPresetData({}, parent) {}

bool DCmdGetPresetData::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    const auto* plugin = qobject_cast<PDeviceHaitor*>(parent());
    if (plugin == nullptr) {
        return false;
    }
    const int progId = getParameterValue(keys::c_progId, QVariant()).toInt();
    const QVariantList programs = plugin->getProperty(properties::c_programList, QVariant()).toList();
    const auto program = std::find_if(programs.cbegin(), programs.cend(), [progId](const QVariant& each) {
        return each.toMap().value(keys::c_progId).toInt() == progId;
    });
    const bool isFound = program != programs.cend();
    QVariantMap preset;
    if (isFound) {
        preset = program_fields::presetOfStoredProgram(program->toMap());
    } else {
        criticalLogLine(this, "plugins/p_device_haitor/source/d_cmd_getPresetData", 75)
            << "Program ID not found in stored list:" << progId;
    }
    return commandUpdateResults({{keys::c_success, isFound}, {keys::c_presetData, preset}});
}

QSharedPointer<ICommand> DCmdGetPresetData::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdGetPresetData>(parameters, parent());
}
