#include "d_cmd_set_keep_alive_fonction.h"

#include "value_bytes.h"
#include <QCoreApplication>

DCmdSetKeepAliveFonction::DCmdSetKeepAliveFonction(const QMap<QString, QVariant>& parameters, SerialLine* line,
                                                   QObject* parent)
    : DLineCommand(QStringLiteral("setKeepAliveFonction"), QString(), parameters, line, parent)
{
    setDescription(QStringLiteral("Set the frame that is sent after a silence, and how its answer begins"));
    declareAParameter(QStringLiteral("frame"), QStringLiteral("strg"),
                      QStringLiteral("The frame to send; an empty one switches the keep-alive off"), QVariant());
    declareAParameter(QStringLiteral("responseFrame"), QStringLiteral("strg"),
                      QStringLiteral("The text that the answer begins with"), QVariant());
    declareAnswer();
}

bool DCmdSetKeepAliveFonction::commandExecute()
{
    if (!DLineCommand::commandExecute()) {
        return false;
    }
    const QVariant frameValue = getParameterValue(QStringLiteral("frame"), QVariant());
    const QByteArray frame = bytesOf(frameValue);
    const QByteArray response = bytesOf(getParameterValue(QStringLiteral("responseFrame"), QVariant()));
    const bool isFrame = frameValue.userType() == QMetaType::QString || frameValue.userType() == QMetaType::QByteArray;
    if (!isFrame) {
        answer(QCoreApplication::translate(
            "SerialDriver", "\"setKeepAliveFonction\" needs a \"frame\" that is a text or a byte array; an empty one "
                            "switches the keep-alive off."));
    } else if (!frame.isEmpty() && response.isEmpty()) {
        answer(QCoreApplication::translate(
            "SerialDriver", "\"setKeepAliveFonction\" needs a \"responseFrame\" that is a text or a byte array and is "
                            "not empty: any line would be taken for the answer otherwise."));
    } else if (line() == nullptr) {
        answer(noLine());
    } else {
        line()->setKeepAlive(frame, response);
        answer({});
    }
    return true;
}

QSharedPointer<ICommand> DCmdSetKeepAliveFonction::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new DCmdSetKeepAliveFonction(parameters, line(), parent()));
}
