#include "d_cmd_connectToDevice.h"

#include <QStringList>
#include <QTimer>

#include "command_factory.h"
#include "found_devices.h"
#include "frames.h"
#include "log_line.h"

namespace {

constexpr int c_searchLimitMs = 10000;

const QString c_name = QStringLiteral("name"); // parameter: the device's name, for messages
const QString c_codeOfLinkedWrench = QStringLiteral("2");

} // namespace

// In this order; the first that does not decline has the line.
const DCmdConnectToDevice::Branch DCmdConnectToDevice::c_branches[] = {
    {frames::c_wrenchHeard, &DCmdConnectToDevice::onWrenchHeard},
    {frames::c_dialEcho, &DCmdConnectToDevice::onDialEcho},
    {frames::c_hungUp, &DCmdConnectToDevice::onHungUp},
    {frames::c_linkOpen, &DCmdConnectToDevice::onLinkOpen},
    {frames::c_refused, &DCmdConnectToDevice::onRefused},
    {QLatin1String(""), &DCmdConnectToDevice::onProbeAnswer},
};

DCmdConnectToDevice::DCmdConnectToDevice(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("searchAndConnect"), parameters, parent), m_searchTimer(new QTimer(this))
{
    setDescription(QStringLiteral("Search and connect command to norbar device"));
    declareAResult(keys::c_success, types::c_bool, QStringLiteral("Device found"), false);
    declareAResult(keys::c_failed, types::c_bool, QStringLiteral("Discoverd failed"), false);
    m_searchTimer->setInterval(c_searchLimitMs);
    connect(m_searchTimer, &QTimer::timeout, this, &DCmdConnectToDevice::disconnectAndFail);
}

DCmdConnectToDevice::DCmdConnectToDevice(QObject* parent) : DCmdConnectToDevice({}, parent) {}

bool DCmdConnectToDevice::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    m_serialId = getParameterValue(keys::c_serialId, QVariant()).toString();
    if (m_serialId.isEmpty()) {
        criticalLogLine(this, "plugins/p_device_haitor/source/d_cmd_connectToDevice", 239)
            << "ERROR: Device haitor does not have a serial Id";
        return true; // kept on purpose: the command stays open until the host stops it
    }
    m_receiver.clearBuffer();
    m_echoMatched = false;
    m_echoedOther = false;
    m_probeSent = false;
    // Kept on purpose: the chosen address stays, so that an early ATH from the dongle redials the wrench of the last
    // run.
    m_searchTimer->start();
    m_sender.write(frames::bytesOf(frames::c_scan),
                   fastdelegate::MakeDelegate(this, &DCmdConnectToDevice::onScanWritten));
    return true;
}

bool DCmdConnectToDevice::onScanWritten(quint64, const QMap<QString, QVariant>&)
{
    m_subscription.open(*this, fastdelegate::MakeDelegate(this, &DCmdConnectToDevice::onReply));
    return true;
}

bool DCmdConnectToDevice::onReply(quint64, const QMap<QString, QVariant>& reply)
{
    m_receiver.feed(reply, [this](const QString& line) { return onLine(line); });
    return true;
}

// True: go on with the next line; false: the run has ended.
bool DCmdConnectToDevice::onLine(const QString& line)
{
    for (const Branch& branch : c_branches) {
        const Outcome outcome = line.startsWith(branch.prefix) ? (this->*branch.handle)(line) : Outcome::Declined;
        if (outcome != Outcome::Declined) {
            return outcome != Outcome::Ended;
        }
    }
    return true;
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::onWrenchHeard(const QString& line)
{
    const std::optional<FoundDevice> device = FoundDevice::fromLine(line);
    if (device && device->serialNumber == m_serialId) {
        // Kept on purpose: each further match does all of this again, and the timer stays stopped.
        m_searchTimer->stop();
        m_address = QString(device->address).remove(QLatin1Char(':'));
        m_sender.hangUp();
    }
    return Outcome::Handled;
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::onDialEcho(const QString& line)
{
    const QStringList fields = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (fields.size() == 2) {
        bool& echo = fields.at(1) == m_address ? m_echoMatched : m_echoedOther;
        echo = true;
    }
    return Outcome::Handled;
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::onHungUp(const QString&)
{
    if (!m_address.isEmpty()) {
        m_sender.write(frames::bytesOf(frames::c_dial + m_address));
    }
    return Outcome::Handled;
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::onLinkOpen(const QString&)
{
    if (!m_echoMatched && !m_echoedOther) {
        return Outcome::Declined;
    }
    // Kept on purpose: a link to another wrench is no success and does not count as failed either.
    commandUpdateResult(keys::c_success, m_echoMatched);
    return finish();
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::onRefused(const QString& line)
{
    const QStringList fields = line.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    if (fields.size() != 2) {
        qInfo().noquote() << "[Norbar device] Cannot connect to the device "
                          << getParameterValue(c_name, QVariant()).toString() << " error " << line;
        return fail();
    }
    if (fields.at(1) != c_codeOfLinkedWrench || m_probeSent) {
        return fail();
    }
    m_probeSent = true;
    m_sender.send(frames::c_probe);
    return Outcome::Handled;
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::onProbeAnswer(const QString& line)
{
    if (!m_probeSent) {
        return Outcome::Handled;
    }
    if (m_sender.lastSent() == frames::c_probe) {
        if (line == frames::c_ok1 || line == frames::c_ok0) {
            m_sender.send(frames::c_unlock);
        }
        return Outcome::Handled;
    }
    if (m_sender.lastSent() == frames::c_unlock && line.startsWith(frames::c_ok)) {
        commandUpdateResult(keys::c_success, true);
        commandUpdateResult(keys::c_failed, false);
        return finish();
    }
    return Outcome::Handled;
}

void DCmdConnectToDevice::disconnectAndFail()
{
    // Kept on purpose: the end hangs up once more.
    m_sender.hangUp();
    addInstruction(frames::c_driver, frames::c_closeConnection, {}, frames::c_driverLimitMs, {});
    fail();
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::fail()
{
    commandUpdateResult(keys::c_success, false);
    commandUpdateResult(keys::c_failed, true);
    return finish();
}

DCmdConnectToDevice::Outcome DCmdConnectToDevice::finish()
{
    bool ok = true;
    finishTheCommand(ok); // the command may be gone
    return Outcome::Ended;
}

bool DCmdConnectToDevice::finishTheCommand(bool& ok)
{
    m_searchTimer->stop();
    m_sender.hangUp();
    if (m_subscription.isOpen()) {
        ok = stopTheInstruction(m_subscription.release());
    }
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdConnectToDevice::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return makeCommand<DCmdConnectToDevice>(parameters, parent());
}
