#include "d_cmd_write.h"

#include <QCoreApplication>
#include <utility>

#include "value_bytes.h"

DCmdWrite::DCmdWrite(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent)
    : DLineCommand(QStringLiteral("write"), QString(), parameters, line, parent)
{
    setDescription(QStringLiteral("Write a frame to the line"));
    declareAParameter(QStringLiteral("frame"), QStringLiteral("strg"),
                      QStringLiteral("The bytes to write, as a byte array or as text"), QVariant());
    declareAParameter(QStringLiteral("timeout"), QStringLiteral("int"),
                      QStringLiteral("Limit until the bytes have left, in milliseconds"), c_defaultLimitMs);
    declareAnswer();
}

DCmdWrite::~DCmdWrite()
{
    forgetTheFrame();
}

bool DCmdWrite::commandExecute()
{
    if (!DLineCommand::commandExecute()) {
        return false;
    }
    const QVariant frameValue = getParameterValue(QStringLiteral("frame"), QVariant());
    const QByteArray frame = bytesOf(frameValue);
    const QVariant limitValue = getParameterValue(QStringLiteral("timeout"), c_defaultLimitMs);
    bool isNumber = false;
    const int limitMs = limitValue.toInt(&isNumber);
    if (frame.isEmpty()) {
        answer(QCoreApplication::translate(
            "SerialDriver", "\"write\" needs a \"frame\" that is a byte array or a text and is not empty."));
    } else if (!isNumber || limitMs <= 0) {
        answer(
            QCoreApplication::translate(
                "SerialDriver", "The \"timeout\" of \"write\" is \"%1\": it must be a number of milliseconds above 0.")
                .arg(limitValue.toString()));
    } else if (line() == nullptr) {
        answer(noLine());
    } else {
        forgetTheFrame(); // of a run before
        m_frameId = line()->write(frame, limitMs, [this](bool, const QString& error) {
            m_frameId = 0;
            answer(error);
        });
        if (m_frameId == 0) {
            answer(line()->error());
        }
    }
    return true;
}

void DCmdWrite::forgetTheFrame()
{
    if (line() != nullptr) {
        line()->forgetDone(std::exchange(m_frameId, 0));
    }
}

QSharedPointer<ICommand> DCmdWrite::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new DCmdWrite(parameters, line(), parent()));
}
