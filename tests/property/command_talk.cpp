#include "command_talk.h"

#include "d_cmd_connectToDevice.h"
#include "d_cmd_listPrograms.h"
#include "d_cmd_listen.h"
#include "d_cmd_sendInitConfig.h"
#include "d_cmd_setProgram.h"
#include "d_cmd_startDetection.h"
#include "event_text.h"

namespace {

const QString c_properties[] = {QStringLiteral("currentProgId"), QStringLiteral("lock"), QStringLiteral("programList"),
                                QStringLiteral("programListCount")};

template <class Command>
QSharedPointer<ICommand> made(PDeviceHaitor& plugin, const QVariantMap& parameters)
{
    return Command(&plugin).createCommand(parameters);
}

QSharedPointer<ICommand> commandOf(PDeviceHaitor& plugin, const TalkSetUp& setUp)
{
    const QMap<QString, QSharedPointer<ICommand> (*)(PDeviceHaitor&, const QVariantMap&)> makers{
        {QStringLiteral("listenEventsData"), made<DCmdListen>},
        {QStringLiteral("startDetection"), made<DCmdStartDetection>},
        {QStringLiteral("searchAndConnect"), made<DCmdConnectToDevice>},
        {QStringLiteral("sendInitConfig"), made<DCmdSendInitConfig>},
        {QStringLiteral("listProgram"), made<DCmdListPrograms>},
        {QStringLiteral("setProgram"), made<DCmdSetProgram>}};
    return makers.value(setUp.command)(plugin, setUp.parameters);
}

/// As eventText() has it, but that an address may bring anything into a frame.
QString textOf(const OrderEvent& event)
{
    const QByteArray frame = event.instruction.parameters.value(QStringLiteral("frame")).toByteArray();
    const bool isBroken =
        frame.startsWith("ATD ") && (frame.chopped(2).contains('\r') || frame.chopped(2).contains('\n'));
    return isBroken ? QStringLiteral("host>   ") + QString::fromUtf8(frame.chopped(2)) : eventText(event);
}

} // namespace

CommandTalk::CommandTalk(PDeviceHaitor& plugin, const TalkSetUp& setUp)
    : m_plugin(plugin), m_command(commandOf(plugin, setUp))
{
    for (const QString& name : c_properties) {
        m_plugin.setProperty(name, setUp.properties.value(name), false);
    }
    m_command->linkWithItsOrder(&m_order);
}

void CommandTalk::start()
{
    m_command->commandExecute();
    noteFrames();
    // The scan waits for the driver's answer.
    if (m_order.instructions().size() == 1 && isScanWrite(m_order.instructions().constFirst())) {
        m_command->setReply(m_order.instructionId(0), {{QStringLiteral("cmd_success"), true}});
    }
}

void CommandTalk::arrive(const QVariantMap& reply)
{
    if (isListening()) {
        m_command->setReply(m_order.openSubscription(), reply);
        noteFrames();
    }
}

void CommandTalk::noteFrames()
{
    const QVector<OrderEvent>& events = m_order.events();
    for (; m_eventsSeen < events.size(); ++m_eventsSeen) {
        const DInstruction& instruction = events.at(m_eventsSeen).instruction;
        if (instruction.command == QLatin1String("write")) {
            const QByteArray frame = instruction.parameters.value(QStringLiteral("frame")).toByteArray();
            m_lastFrame = QString::fromUtf8(frame).trimmed();
        }
    }
}

TalkOutcome CommandTalk::outcome() const
{
    TalkOutcome outcome;
    const QVector<OrderEvent>& events = m_order.events();
    for (const OrderEvent& event : events) {
        outcome.events.append(textOf(event));
    }
    for (const QString& name : c_properties) {
        const QVariant value = m_plugin.getProperty(name, QVariant());
        if (value.isValid()) {
            outcome.properties.insert(name, value);
        }
    }
    return outcome;
}

TalkOutcome CommandTalk::play(PDeviceHaitor& plugin, const TalkSetUp& setUp, const QVector<QVariantMap>& replies)
{
    CommandTalk talk(plugin, setUp);
    talk.start();
    for (const QVariantMap& reply : replies) {
        talk.arrive(reply);
    }
    return talk.outcome();
}

TalkOutcome CommandTalk::playNaively(const TalkSetUp& setUp, const QVector<QVariantMap>& replies)
{
    const std::unique_ptr<NaiveTalk> talk = NaiveTalk::of(setUp);
    talk->start();
    for (const QVariantMap& reply : replies) {
        talk->arrive(reply);
    }
    return talk->outcome();
}
