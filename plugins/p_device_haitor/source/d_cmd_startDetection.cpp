#include "d_cmd_startDetection.h"

#include "command_factory.h"
#include "frames.h"

namespace {

const QString c_lastResults = QStringLiteral("lastResults");

} // namespace

DCmdStartDetection::DCmdStartDetection(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("startDetection"), commands::c_stopListening, parameters, parent)
{
    setDescription(QStringLiteral("Serial device scan"));
    declareAResult(c_lastResults, types::c_list, QStringLiteral("Found device list"), QVariant());
}

DCmdStartDetection::DCmdStartDetection(QObject* parent) : DCmdStartDetection({}, parent) {}

bool DCmdStartDetection::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_found.clear();
    m_receiver.clearBuffer();
    m_sender.write(frames::bytesOf(frames::c_scan),
                   fastdelegate::MakeDelegate(this, &DCmdStartDetection::onScanWritten));
    return true;
}

bool DCmdStartDetection::onScanWritten(quint64, const QMap<QString, QVariant>&)
{
    m_subscription.open(*this, fastdelegate::MakeDelegate(this, &DCmdStartDetection::onReply));
    return true;
}

bool DCmdStartDetection::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    m_receiver.feed(reply, [this](const QString& line) {
        if (line.startsWith(frames::c_wrenchHeard)) {
            m_found.addFromLine(line);
        }
        return true;
    });
    // Kept on purpose: the list is published on every reply, also on one that completes no line.
    commandUpdateResults({{c_lastResults, m_found.toList()}});
    return true;
}

bool DCmdStartDetection::finishTheCommand(bool& ok)
{
    if (m_subscription.isOpen()) {
        ok = stopTheInstruction(m_subscription.release());
        m_sender.hangUp();
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdStartDetection::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdStartDetection>(parameters, parent());
}
