#include "d_cmd_listPrograms.h"

#include "command_factory.h"
#include "frames.h"
#include "p_device_haitor.h"
#include "program_fields.h"

namespace {

constexpr int c_idleRetries = 5;

const QString c_programListResult = QStringLiteral("programList");

} // namespace

DCmdListPrograms::DCmdListPrograms(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("listProgram"), parameters, parent)
{
    setDescription(QStringLiteral("List all programs from haitor device"));
    declareAResult(c_programListResult, types::c_list, QStringLiteral("List of programs found on the device"),
                   QVariant());
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Command success status"), false);
    declareAResult(keys::c_failed, types::c_bool, QStringLiteral("Discoverd failed"), false);
}

DCmdListPrograms::DCmdListPrograms(QObject* parent) : DCmdListPrograms({}, parent) {}

bool DCmdListPrograms::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_plugin = qobject_cast<PDeviceHaitor*>(parent());
    if (m_plugin == nullptr) {
        return false;
    }
    m_programs.clear();
    m_receiver.clearBuffer();
    m_firstProgram.clear();
    m_idleRetries = 0;
    m_subscription.open(*this, fastdelegate::MakeDelegate(this, &DCmdListPrograms::onReply));
    m_sender.send(frames::c_idle);
    return true;
}

bool DCmdListPrograms::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    m_receiver.feed(reply, [this](const QString& line) { return onLine(line); });
    return true;
}

bool DCmdListPrograms::onLine(const QString& line)
{
    const QString& sent = m_sender.lastSent();
    if (line.isEmpty() || line == sent) { // the wrench may echo what it is sent
        return true;
    }
    if (line.startsWith(frames::c_refused)) {
        return onRefusal();
    }
    if (sent == frames::c_currentProgram) {
        const bool isProgram = line.startsWith(frames::c_fields) && program_fields::namesAProgram(line);
        return !isProgram || onProgram(program_fields::withoutAcknowledgement(line));
    }
    if (sent == frames::c_nextProgram || (sent == frames::c_idle && line == frames::c_ok)) {
        m_sender.send(frames::c_currentProgram);
    }
    return true;
}

bool DCmdListPrograms::onRefusal()
{
    if (m_sender.lastSent() != frames::c_idle || m_idleRetries == c_idleRetries) {
        storeAndFinish();
        return false;
    }
    ++m_idleRetries;
    m_sender.send(frames::c_idle);
    return true;
}

bool DCmdListPrograms::onProgram(const QString& fields)
{
    if (fields == m_firstProgram) {
        storeAndFinish();
        return false;
    }
    if (m_firstProgram.isEmpty()) {
        m_firstProgram = fields;
    }
    QVariantMap program = program_fields::split(fields);
    program.insert(keys::c_progId, m_programs.size() + 1);
    m_programs.append(program);
    m_sender.send(frames::c_nextProgram);
    return true;
}

void DCmdListPrograms::storeAndFinish()
{
    const int count = m_programs.size();
    const bool isPersistent = count > 0;
    m_plugin->setProperty(properties::c_programList, m_programs, isPersistent);
    m_plugin->setProperty(properties::c_programListCount, count, isPersistent);
    if (count > 0) {
        // Kept on purpose: the last one read, whatever the wrench has gone on to since.
        m_plugin->setProperty(properties::c_currentProgId, count, true);
    }
    commandUpdateResult(c_programListResult, m_programs);
    // Kept on purpose: success with an empty list, too.
    commandUpdateResult(keys::c_success, true);
    bool ok = true;
    finishTheCommand(ok);
}

bool DCmdListPrograms::finishTheCommand(bool& ok)
{
    if (m_subscription.isOpen()) {
        ok = stopTheInstruction(m_subscription.release());
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdListPrograms::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdListPrograms>(parameters, parent());
}
