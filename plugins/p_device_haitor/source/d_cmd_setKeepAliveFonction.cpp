#include "d_cmd_setKeepAliveFonction.h"

#include "command_factory.h"
#include "frames.h"

namespace {

const QString c_responseFrame = QStringLiteral("responseFrame");

} // namespace

DCmdSetKeepAliveFonction::DCmdSetKeepAliveFonction(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(commands::c_setKeepAliveFonction, parameters, parent)
{
    setDescription(QStringLiteral("Set keep alive function"));
    declareAParameter(keys::c_frame, types::c_text, QStringLiteral("The frame to send"), QVariant());
    declareAParameter(c_responseFrame, types::c_text, QStringLiteral("Expected response Frame"), QVariant());
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Success"), false);
}

DCmdSetKeepAliveFonction::DCmdSetKeepAliveFonction(QObject* parent) : DCmdSetKeepAliveFonction({}, parent) {}

bool DCmdSetKeepAliveFonction::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    // Passed on as given: what is missing is passed on as missing, and nothing is converted.
    addInstruction(frames::c_driver, commands::c_setKeepAliveFonction,
                   {{keys::c_frame, getParameterValue(keys::c_frame, QVariant())},
                    {c_responseFrame, getParameterValue(c_responseFrame, QVariant())}},
                   frames::c_driverLimitMs, fastdelegate::MakeDelegate(this, &DCmdSetKeepAliveFonction::onReply));
    return true;
}

bool DCmdSetKeepAliveFonction::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    commandUpdateResult(keys::c_success, reply.value(keys::c_success, false).toBool());
    bool ok = true;
    return finishTheCommand(ok);
}

bool DCmdSetKeepAliveFonction::finishTheCommand(bool& ok)
{
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdSetKeepAliveFonction::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdSetKeepAliveFonction>(parameters, parent());
}
