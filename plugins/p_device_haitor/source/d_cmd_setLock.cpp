#include "d_cmd_setLock.h"

#include "command_factory.h"
#include "frame_sender.h"
#include "frames.h"
#include "p_device_haitor.h"

DCmdSetLock::DCmdSetLock(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(commands::c_setLock, parameters, parent)
{
    setDescription(QStringLiteral("Set tool lock state (Data Transmission mode)"));
    declareAParameter(keys::c_lock, types::c_bool, QStringLiteral("True to lock (DT:1), false to unlock (DT:0)"),
                      QVariant());
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Command success status"), false);
}

DCmdSetLock::DCmdSetLock(QObject* parent) : DCmdSetLock({}, parent) {}

bool DCmdSetLock::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_plugin = qobject_cast<PDeviceHaitor*>(parent());
    if (m_plugin == nullptr) {
        return false;
    }
    const bool isToLock = getParameterValue(keys::c_lock, QVariant()).toBool();
    FrameSender(*this).write(frames::bytesOf(isToLock ? frames::c_lock : frames::c_unlock),
                             fastdelegate::MakeDelegate(this, &DCmdSetLock::onReply));
    return true;
}

bool DCmdSetLock::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    const bool isSuccess = reply.value(keys::c_success, false).toBool();
    commandUpdateResult(keys::c_success, isSuccess);
    if (isSuccess) {
        // Kept on purpose: false also after a successful locking.
        m_plugin->setProperty(properties::c_lock, false, true);
    }
    bool ok = true;
    finishTheCommand(ok);
    return true;
}

QSharedPointer<ICommand> DCmdSetLock::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdSetLock>(parameters, parent());
}
