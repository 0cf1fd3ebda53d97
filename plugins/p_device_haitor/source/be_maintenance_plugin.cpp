#include "be_maintenance_plugin.h"

#include "log_line.h"
#include "names.h"

namespace {

const QString c_setProgram = QStringLiteral("setProgram");
const QString c_setDirection = QStringLiteral("setDirection");
const QString c_getRegister = QStringLiteral("getRegister");
const QString c_channel = QStringLiteral("channel");
const QString c_value = QStringLiteral("value");
const QString c_direction = QStringLiteral("direction");

constexpr int c_noIndex = 0;

// The lines under which the host's tools know these messages.
constexpr char c_sourcePath[] = "plugins/p_device_haitor/source/be_maintenance_plugin";
constexpr int c_updateLine = 68;
constexpr int c_clickLine = 83;
constexpr int c_replyLine = 179;

} // namespace

const QMap<QString, int> BeMaintenanceDeviceHaitor::c_commandsChannelsIndex{
    {commands::c_setLock, 100},
    {c_setProgram, 200},
    {c_setDirection, 300},
};

BeMaintenanceDeviceHaitor::BeMaintenanceDeviceHaitor(QObject* parent)
    : DAbstractPluginBackend(QStringLiteral("PlgLibDeviceHaitor"), parent)
{
    connect(this, &DAbstractPluginBackend::abstractBackendInitialized, this, &BeMaintenanceDeviceHaitor::initBackend);
    // Queued: a click that is refused over and over never runs inside itself.
    connect(this, &BeMaintenanceDeviceHaitor::delayingClickedOnChannel, this,
            &BeMaintenanceDeviceHaitor::clickedOnChannel, Qt::QueuedConnection);
}

void BeMaintenanceDeviceHaitor::setConnectionPath(const QString& connectionPath)
{
    if (m_connectionPath != connectionPath) {
        m_connectionPath = connectionPath;
        Q_EMIT connectionPathChanged();
    }
}

void BeMaintenanceDeviceHaitor::setVersion(const QString& version)
{
    if (m_version != version) {
        m_version = version;
        Q_EMIT versionChanged();
    }
}

void BeMaintenanceDeviceHaitor::updateChannelsValue()
{
    if (hasPendingTreatments()) {
        return;
    }
    for (int i = 0; i < m_statusChannelsModel.count(); ++i) {
        const QSharedPointer<DHaitorChannel> channel = getChannelAt(i);
        if (channel.isNull()) {
            criticalLogLine(this, c_sourcePath, c_updateLine)
                << "BeMaintenanceDeviceHaitor::updateChannelsValue: channel is null at index" << i;
            continue;
        }
        queueTreatment(i, channel->readCommand(), {{c_channel, channel->id()}});
    }
}

void BeMaintenanceDeviceHaitor::clickedOnChannel(int channelIndex)
{
    const QSharedPointer<DHaitorChannel> channel = getChannelAt(channelIndex);
    if (channel.isNull()) {
        criticalLogLine(this, c_sourcePath, c_clickLine)
            << "BeMaintenanceDeviceHaitor::clickedOnChannel: channel is null at index" << channelIndex;
        return;
    }
    // Kept on purpose: the host takes a treatment without a name for a click.
    const bool isAccepted = queueTreatment(channelIndex, QLatin1String(""),
                                           {{c_channel, channel->id()}, {c_value, !channel->value().toBool()}});
    if (!isAccepted) {
        Q_EMIT delayingClickedOnChannel(channelIndex);
    }
}

void BeMaintenanceDeviceHaitor::setLock(const bool& lockStatus)
{
    queueCommand(commands::c_setLock, keys::c_lock, lockStatus ? 1 : 0);
}

void BeMaintenanceDeviceHaitor::setProgram(const QString& program)
{
    bool isNumber = false;
    const int number = program.toInt(&isNumber);
    if (isNumber && number >= 0) {
        queueCommand(c_setProgram, keys::c_progId, number);
    }
}

void BeMaintenanceDeviceHaitor::setDirection(const bool& directionStatus)
{
    queueCommand(c_setDirection, c_direction, directionStatus ? 1 : 0);
}

void BeMaintenanceDeviceHaitor::resetBackend()
{
    m_statusChannelsModel.beginResetModel();
    m_statusChannelsModel.objects().clear();
    m_statusChannelsModel.endResetModel();
    Q_EMIT m_statusChannelsModel.changed();
}

// Nothing is to be done when the device is found: what the panel shows comes with its first update.
void BeMaintenanceDeviceHaitor::initBackend() {}

QSharedPointer<DHaitorChannel> BeMaintenanceDeviceHaitor::getChannelAt(int index) const
{
    return m_statusChannelsModel.at(index);
}

bool BeMaintenanceDeviceHaitor::applyTreatmentReply(int index, const QString& treatment,
                                                    const QMap<QString, QVariant>& reply)
{
    const QVariant outcome = reply.value(keys::c_success);
    if (treatment != c_getRegister) {
        return outcome.toBool();
    }
    const QSharedPointer<DHaitorChannel> channel = getChannelAt(index);
    if (channel.isNull()) {
        criticalLogLine(this, c_sourcePath, c_replyLine)
            << "BeMaintenanceDeviceHaitor::applyTreatmentReply: channel is null at index" << index;
        return false;
    }
    return channel->setValue(outcome); // what was read travels under the same name
}

bool BeMaintenanceDeviceHaitor::queueCommand(const QString& command, const QString& parameter, int value)
{
    return queueTreatment(c_commandsChannelsIndex.value(command, c_noIndex), command, {{parameter, value}});
}
