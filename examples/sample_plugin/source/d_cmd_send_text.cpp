#include "d_cmd_send_text.h"

namespace {
constexpr int c_writeTimeoutMs = 500; // for the bytes to leave
constexpr int c_answerLimitMs = 2000; // for the driver to say so
} // namespace

DCmdSendText::DCmdSendText(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("sendText"), parameters, parent)
{
    setDescription(QStringLiteral("Send one line of text"));
    declareAParameter(QStringLiteral("text"), QStringLiteral("strg"), QStringLiteral("The line, without its end"),
                      QString());
    declareAResult(QStringLiteral("cmd_success"), QStringLiteral("bool"), QStringLiteral("The line was sent"), false);
}

bool DCmdSendText::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    const QByteArray frame = getParameterValue(QStringLiteral("text"), QString()).toString().toUtf8() + "\r\n";
    const quint64 id = addInstruction(QStringLiteral("driver"), QStringLiteral("write"),
                                      {{QStringLiteral("frame"), frame}, {QStringLiteral("timeout"), c_writeTimeoutMs}},
                                      c_answerLimitMs, fastdelegate::MakeDelegate(this, &DCmdSendText::onWritten));
    return id != 0;
}

bool DCmdSendText::onWritten(quint64 instructionId, const QMap<QString, QVariant>& reply)
{
    Q_UNUSED(instructionId)
    const QString success = QStringLiteral("cmd_success");
    commandUpdateResult(success, reply.value(success, false).toBool());
    bool ok = true;
    return finishTheCommand(ok);
}

QSharedPointer<ICommand> DCmdSendText::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<DCmdSendText>(new DCmdSendText(parameters, parent()));
}
