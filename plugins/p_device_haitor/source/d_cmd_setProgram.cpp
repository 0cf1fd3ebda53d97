#include "d_cmd_setProgram.h"

#include "command_factory.h"
#include "frames.h"
#include "p_device_haitor.h"
#include "program_fields.h"

DCmdSetProgram::DCmdSetProgram(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("setProgram"), parameters, parent)
{
    setDescription(QStringLiteral("Set current program by ID on haitor device"));
    declareAParameter(keys::c_progId, types::c_int, QStringLiteral("Program ID to select (starts at 1)"), QVariant());
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Command success status"), false);
    declareAResult(keys::c_presetData, types::c_map, QStringLiteral("Program parameters map"), QVariant());
}

DCmdSetProgram::DCmdSetProgram(QObject* parent) : DCmdSetProgram({}, parent) {}

bool DCmdSetProgram::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    auto* plugin = qobject_cast<PDeviceHaitor*>(parent());
    if (plugin == nullptr) {
        return false;
    }
    m_progId = getParameterValue(keys::c_progId, QVariant()).toInt();
    const int currentProgId = plugin->getProperty(properties::c_currentProgId, QVariant()).toInt();
    return m_progId == currentProgId ? unlockForTheStoredProgram() : stepToTheProgram(*plugin);
}

// A program that is already current: the plugin answers itself.

bool DCmdSetProgram::unlockForTheStoredProgram()
{
    return addInstruction(frames::c_myself, commands::c_setLock, {{keys::c_lock, false}}, frames::c_ownLimitMs,
                          fastdelegate::MakeDelegate(this, &DCmdSetProgram::onUnlocked)) != 0;
}

bool DCmdSetProgram::onUnlocked(quint64, const QMap<QString, QVariant>& reply)
{
    // Kept on purpose: a refused lock leaves the run open without a result; the caller's limit ends it.
    if (reply.value(keys::c_success, false).toBool()) {
        addInstruction(frames::c_myself, commands::c_getPresetData, {{keys::c_progId, m_progId}}, frames::c_ownLimitMs,
                       fastdelegate::MakeDelegate(this, &DCmdSetProgram::onStoredPreset));
    }
    return true;
}

bool DCmdSetProgram::onStoredPreset(quint64, const QMap<QString, QVariant>& reply)
{
    const auto preset = reply.constFind(keys::c_presetData);
    if (preset != reply.constEnd()) {
        finishWithPreset(preset->toMap());
    }
    return true;
}

// Any other program: the wrench is stepped to it.

bool DCmdSetProgram::stepToTheProgram(PDeviceHaitor& plugin)
{
    // Kept on purpose: set before any check, for it is the program asked for last, not one that is confirmed.
    plugin.setProperty(properties::c_currentProgId, m_progId, true);
    const int count = plugin.getProperty(properties::c_programListCount, QVariant()).toInt();
    if (m_progId < 1 || m_progId > count) {
        commandUpdateResult(keys::c_success, false);
        bool ok = true;
        return finishTheCommand(ok);
    }
    m_receiver.clearBuffer();
    m_receiver.forgetNumber();
    m_steps = 0;
    m_subscription.open(*this, fastdelegate::MakeDelegate(this, &DCmdSetProgram::onReply));
    m_sender.send(frames::c_idle);
    return true;
}

bool DCmdSetProgram::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    m_receiver.feed(reply, [this](const QString& line) { return onLine(line); });
    return true;
}

bool DCmdSetProgram::onLine(const QString& line)
{
    // An echo of what was sent, an empty line and a refusal fit neither branch and are passed over.
    if (m_sender.lastSent() == frames::c_currentProgram) {
        if (program_fields::namesAProgram(line)) {
            finishWithPreset(program_fields::presetOfAnswer(line));
            return false;
        }
    } else if (line.startsWith(frames::c_ok)) {
        sendNextStep();
    }
    return true;
}

void DCmdSetProgram::sendNextStep()
{
    if (m_steps < m_progId - 1) {
        m_sender.send(frames::c_nextProgram);
        ++m_steps;
    } else {
        m_sender.send(frames::c_currentProgram);
    }
}

void DCmdSetProgram::finishWithPreset(const QVariantMap& preset)
{
    commandUpdateResult(keys::c_presetData, preset);
    commandUpdateResult(keys::c_success, true);
    bool ok = true;
    finishTheCommand(ok);
}

bool DCmdSetProgram::finishTheCommand(bool& ok)
{
    if (m_subscription.isOpen()) {
        ok = stopTheInstruction(m_subscription.release());
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdSetProgram::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdSetProgram>(parameters, parent());
}
