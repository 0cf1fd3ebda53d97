#include "event_text.h"

#include "typed_text.h"

namespace {

constexpr int c_driverLimitMs = 2000;
constexpr int c_ownLimitMs = 3000;
const QByteArray c_lineEnd = QByteArrayLiteral("\r\n");
const QByteArray c_scan = QByteArrayLiteral("ATS\r\n");
const QByteArray c_hangUp = QByteArrayLiteral("ATH\r\n");
const QString c_frame = QStringLiteral("frame");

QString column(const QString& word)
{
    return word.leftJustified(8);
}

// What is wrong with a write, or nothing.
QString complaintAboutWrite(const DInstruction& write)
{
    const QVariant frame = write.parameters.value(c_frame);
    const QByteArray bytes = frame.toByteArray();
    const QMap<QString, QVariant> wanted{{c_frame, frame}, {QStringLiteral("timeout"), 500}};
    if (typedText(write.parameters) != typedText(wanted)) {
        return QStringLiteral("the parameters are to be \"frame\" and \"timeout\" 500");
    }
    const QMetaType::Type type = bytes == c_hangUp ? QMetaType::QString : QMetaType::QByteArray;
    if (frame.userType() != type) {
        return QStringLiteral("a frame is a byte array, the hang-up alone is a text");
    }
    if (!bytes.endsWith(c_lineEnd) || bytes.indexOf('\r') != bytes.size() - 2 ||
        bytes.indexOf('\n') != bytes.size() - 1) {
        return QStringLiteral("a frame has one CR LF, at its end");
    }
    if (isScanWrite(write) && !write.wantsReply) {
        return QStringLiteral("the scan has to wait for the driver's answer");
    }
    return {};
}

QString subscriptionText(const DInstruction& subscription)
{
    const QByteArray validator = subscription.parameters.value(QStringLiteral("validator")).toByteArray();
    QMap<QString, QVariant> wanted{{QStringLiteral("subscription"), true}};
    if (!validator.isEmpty()) {
        wanted.insert(QStringLiteral("validator"), validator);
    }
    if (typedText(subscription.parameters) != typedText(wanted) || !subscription.wantsReply) {
        return {};
    }
    const QString text = QStringLiteral("validator=") + QString::fromLatin1(validator.toHex());
    return validator.isEmpty() ? QStringLiteral("listen") : column(QStringLiteral("listen")) + text;
}

QString namedInstruction(const QString& word, const DInstruction& instruction)
{
    const QString parameters = typedText(instruction.parameters).replace(QStringLiteral(" + "), QStringLiteral(" "));
    return (column(word) + instruction.command + QLatin1Char(' ') + parameters).trimmed();
}

QString instructionText(const DInstruction& instruction)
{
    const bool toDriver = instruction.target == QLatin1String("driver");
    const QString raw = QStringLiteral("instruction %1 to %2, limit %3 ms, wants an answer: %4, %5")
                            .arg(instruction.command, instruction.target, QString::number(instruction.limitMs),
                                 typedText(instruction.wantsReply), typedText(instruction.parameters));
    if (instruction.limitMs != (toDriver ? c_driverLimitMs : c_ownLimitMs)) {
        return QStringLiteral("wrong limit: ") + raw;
    }
    if (!toDriver) {
        const bool wellFormed = instruction.target == QLatin1String("myself") && instruction.wantsReply;
        return wellFormed ? namedInstruction(QStringLiteral("self>"), instruction) : raw;
    }
    if (instruction.command == QLatin1String("listenEventsData")) {
        const QString text = subscriptionText(instruction);
        return text.isEmpty() ? QStringLiteral("wrong subscription: ") + raw : text;
    }
    if (instruction.command == QLatin1String("write")) {
        const QString complaint = complaintAboutWrite(instruction);
        if (!complaint.isEmpty()) {
            return complaint + QStringLiteral(": ") + raw;
        }
        const QByteArray bytes = instruction.parameters.value(c_frame).toByteArray();
        const bool waits = instruction.wantsReply && !isScanWrite(instruction);
        return column(waits ? QStringLiteral("host>?") : QStringLiteral("host>")) +
               QString::fromUtf8(bytes.chopped(c_lineEnd.size()));
    }
    return namedInstruction(instruction.wantsReply ? QStringLiteral("driver>?") : QStringLiteral("driver>"),
                            instruction);
}

} // namespace

bool isScanWrite(const DInstruction& instruction)
{
    return instruction.command == QLatin1String("write") &&
           instruction.parameters.value(c_frame).toByteArray() == c_scan;
}

QString eventText(const OrderEvent& event)
{
    switch (event.kind) {
    case OrderEvent::Kind::Instruction:
        return instructionText(event.instruction);
    case OrderEvent::Kind::Stop:
        return event.ok ? QStringLiteral("unlisten") : QStringLiteral("unlisten of what is not open");
    case OrderEvent::Kind::Results:
        return column(QStringLiteral("result")) + typedText(event.values);
    case OrderEvent::Kind::End:
        break;
    }
    return column(QStringLiteral("end")) + typedText(event.ok);
}
