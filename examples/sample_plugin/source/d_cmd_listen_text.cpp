#include "d_cmd_listen_text.h"

namespace {
constexpr int c_openingLimitMs = 2000; // silence later on is no error
}

DCmdListenText::DCmdListenText(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("listenText"), QStringLiteral("stopListening"), parameters, parent)
{
    setDescription(QStringLiteral("Listen to what the device says"));
    declareAResult(QStringLiteral("text"), QStringLiteral("strg"), QStringLiteral("What it said"), QVariant());
}

bool DCmdListenText::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_subscription = addInstruction(QStringLiteral("driver"), QStringLiteral("listenEventsData"),
                                    {{QStringLiteral("subscription"), true}}, c_openingLimitMs,
                                    fastdelegate::MakeDelegate(this, &DCmdListenText::onHeard));
    return m_subscription != 0;
}

bool DCmdListenText::onHeard(quint64 instructionId, const QMap<QString, QVariant>& reply)
{
    Q_UNUSED(instructionId)
    const auto frame = reply.constFind(QStringLiteral("frame"));
    return frame != reply.constEnd() &&
           commandUpdateResult(QStringLiteral("text"), QString::fromUtf8(frame->toByteArray()));
}

bool DCmdListenText::finishTheCommand(bool& ok)
{
    if (m_subscription != 0) {
        ok = stopTheInstruction(m_subscription);
        m_subscription = 0;
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdListenText::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<DCmdListenText>(new DCmdListenText(parameters, parent()));
}
