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
    // Results may come in thousands: in the order of their keys, each is put behind the last without a search.
    QVariantMap record;
    const auto put = [&record](const QString& key, const QVariant& value) { record.insert(record.cend(), key, value); };
    put(QStringLiteral("angleStatus"), fields[AngleStatus].toString());
    put(QStringLiteral("convertedTorque"), fields[Torque].toString());
    put(QStringLiteral("direction"), fields[Direction].toString());
    put(QStringLiteral("eventCountNo"), m_receiver.lastNumber());
    if (m_plugin != nullptr) {
        put(keys::c_progId, m_plugin->getProperty(properties::c_currentProgId, QVariant()).toInt());
    }
    put(QStringLiteral("readingNumber"), fields[ReadingNumber].toString());
    put(QStringLiteral("readingStatus"), fields[ReadingStatus].toString());
    put(QStringLiteral("snugTorqueAngle"), fields[SnugAngle].toString());
    put(QStringLiteral("torqueStatus"), fields[TorqueStatus].toString());
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
