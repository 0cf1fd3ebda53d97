#include "d_cmd_sendInitConfig.h"

#include <algorithm>

#include "command_factory.h"
#include "frames.h"
#include "p_device_haitor.h"

namespace {

struct Step
{
    QLatin1String sent;
    QLatin1String awaited;
    QLatin1String next; // null: done
};

constexpr Step c_steps[] = {
    {frames::c_lock, frames::c_ok1, frames::c_configure},
    {frames::c_configure, frames::c_ok2, frames::c_enableResults},
    {frames::c_enableResults, frames::c_ok1, QLatin1String()},
};

} // namespace

DCmdSendInitConfig::DCmdSendInitConfig(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("sendInitConfig"), parameters, parent)
{
    setDescription(QStringLiteral("Send init commands (DT, SC, RE)"));
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Success"), false);
    declareAResult(keys::c_failed, types::c_bool, QStringLiteral("Failed"), false);
}

DCmdSendInitConfig::DCmdSendInitConfig(QObject* parent) : DCmdSendInitConfig({}, parent) {}

bool DCmdSendInitConfig::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_plugin = qobject_cast<PDeviceHaitor*>(parent());
    if (m_plugin == nullptr) {
        return false;
    }
    m_plugin->setProperty(properties::c_lock, false, true);
    m_receiver.clearBuffer();
    m_subscription.open(*this, fastdelegate::MakeDelegate(this, &DCmdSendInitConfig::onReply));
    m_sender.send(c_steps[0].sent);
    return true;
}

bool DCmdSendInitConfig::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    m_receiver.feed(reply, [this](const QString& line) { return onLine(line); });
    return true;
}

// True: go on with the next line; false: the run has ended.
bool DCmdSendInitConfig::onLine(const QString& line)
{
    const auto* step = std::find_if(std::cbegin(c_steps), std::cend(c_steps), [&](const Step& each) {
        return m_sender.lastSent() == each.sent && line == each.awaited;
    });
    if (step != std::cend(c_steps)) {
        if (step->next.isNull()) {
            commandUpdateResult(keys::c_success, true);
            return finish();
        }
        if (step->sent == frames::c_lock) {
            m_plugin->setProperty(properties::c_lock, true, true);
        }
        m_sender.send(step->next);
    }
    // Kept on purpose: anywhere in the line, not only at its start.
    if (line.contains(frames::c_refused)) {
        commandUpdateResult(keys::c_failed, true);
        return finish();
    }
    return true;
}

bool DCmdSendInitConfig::finish()
{
    bool ok = true;
    finishTheCommand(ok); // the command may be gone
    return false;
}

bool DCmdSendInitConfig::finishTheCommand(bool& ok)
{
    if (m_subscription.isOpen()) {
        ok = stopTheInstruction(m_subscription.release());
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdSendInitConfig::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdSendInitConfig>(parameters, parent());
}
