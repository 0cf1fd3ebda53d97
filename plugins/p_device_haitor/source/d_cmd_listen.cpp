#include "d_cmd_listen.h"

#include <array>

#include <QStringView>

#include "command_factory.h"
#include "frames.h"
#include "p_device_haitor.h"

namespace {

/// The fields of a result line, in their order on the line; what follows them is ignored.
enum Field { Torque, Direction, TorqueStatus, SnugAngle, AngleStatus, ReadingNumber, ReadingStatus, FieldCount };

// Kept on purpose: one less than there are. A line of six fields is a result, too; its "readingStatus" is empty.
constexpr int c_fieldsNeeded = FieldCount - 1;

const QString c_eventData = QStringLiteral("eventData");

/// Cuts the text at its commas; returns how many fields it has, at most FieldCount. A field that is missing is left.
int cut(QStringView text, std::array<QStringView, FieldCount>& fields)
{
    int count = 0;
    qsizetype begin = 0;
    while (count < FieldCount && begin <= text.size()) {
        const qsizetype comma = text.indexOf(QLatin1Char(','), begin);
        const qsizetype end = comma < 0 ? text.size() : comma;
        fields[std::size_t(count)] = text.mid(begin, end - begin);
        ++count;
        begin = end + 1;
    }
    return count;
}

// Results may come in thousands. A copy of a map that has its keys costs a third of putting them in one by one, and
// most fields are codes of one digit, which need no text of their own.

const QVariantMap& emptyRecord()
{
    static const QVariantMap record{
        {QStringLiteral("angleStatus"), {}},     {QStringLiteral("convertedTorque"), {}},
        {QStringLiteral("direction"), {}},       {QStringLiteral("eventCountNo"), {}},
        {QStringLiteral("readingNumber"), {}},   {QStringLiteral("readingStatus"), {}},
        {QStringLiteral("snugTorqueAngle"), {}}, {QStringLiteral("torqueStatus"), {}},
    };
    return record;
}

const QVariantMap& emptyRecordWithProgram()
{
    static const QVariantMap record = [] {
        QVariantMap withProgram = emptyRecord();
        withProgram.insert(keys::c_progId, {});
        return withProgram;
    }();
    return record;
}

/// The field's text; the same one for each field of the same digit.
QString shared(QStringView field)
{
    static const std::array<QString, 10> digits = [] {
        std::array<QString, 10> texts;
        for (std::size_t digit = 0; digit < texts.size(); ++digit) {
            texts[digit] = QString::number(digit);
        }
        return texts;
    }();
    const std::size_t digit = field.size() == 1 ? std::size_t(field.front().unicode()) - '0' : digits.size();
    return digit < digits.size() ? digits[digit] : field.toString();
}

} // namespace

DCmdListen::DCmdListen(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(commands::c_listenEventsData, commands::c_stopListening, parameters, parent)
{
    setDescription(QStringLiteral("Listen to tightening events from the device"));
    declareAResult(c_eventData, types::c_map, QStringLiteral("Parsed tightening data from RE:F: events"), QVariant());
}

DCmdListen::DCmdListen(QObject* parent) : DCmdListen({}, parent) {}

bool DCmdListen::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_plugin = qobject_cast<PDeviceHaitor*>(parent());
    m_subscription.open(*this, fastdelegate::MakeDelegate(this, &DCmdListen::onReply), QByteArray::fromHex("0003"));
    return true;
}

bool DCmdListen::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    m_receiver.feed(reply, [this](const QString& line) {
        onLine(line);
        return true;
    });
    return true;
}

void DCmdListen::onLine(const QString& line)
{
    if (!line.startsWith(frames::c_tighteningResult)) {
        return;
    }
    std::array<QStringView, FieldCount> fields;
    fields.fill(QStringView(u""));
    if (cut(QStringView(line).mid(frames::c_tighteningResult.size()), fields) < c_fieldsNeeded) {
        return;
    }
    // In the order of their keys, as the map keeps them.
    QVariantMap record = m_plugin == nullptr ? emptyRecord() : emptyRecordWithProgram();
    auto entry = record.begin();
    *entry++ = shared(fields[AngleStatus]);
    *entry++ = shared(fields[Torque]);
    *entry++ = shared(fields[Direction]);
    *entry++ = m_receiver.lastNumber();
    if (m_plugin != nullptr) {
        *entry++ = m_plugin->getProperty(properties::c_currentProgId, QVariant()).toInt();
    }
    *entry++ = shared(fields[ReadingNumber]);
    *entry++ = shared(fields[ReadingStatus]);
    *entry++ = shared(fields[SnugAngle]);
    *entry++ = shared(fields[TorqueStatus]);
    commandUpdateResults({{c_eventData, record}});
}

bool DCmdListen::finishTheCommand(bool& ok)
{
    if (m_subscription.isOpen()) {
        ok = stopTheInstruction(m_subscription.release());
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdListen::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdListen>(parameters, parent());
}
