#include "d_cmd_keepAlive.h"

#include "command_factory.h"
#include "frame_sender.h"
#include "frames.h"

DCmdKeepAlive::DCmdKeepAlive(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("setKeepAlive"), parameters, parent)
{
    setDescription(QStringLiteral("set Keep alive command"));
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Success"), false);
}

DCmdKeepAlive::DCmdKeepAlive(QObject* parent) : DCmdKeepAlive({}, parent) {}

bool DCmdKeepAlive::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    if (!getParameterValue(keys::c_serialId, QVariant()).toString().isEmpty()) {
        FrameSender(*this).send(frames::c_probe);
    }
    // Kept on purpose: success whether or not the frame went out, and before anybody has answered.
    commandUpdateResult(keys::c_success, true);
    bool ok = true;
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdKeepAlive::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdKeepAlive>(parameters, parent());
}
