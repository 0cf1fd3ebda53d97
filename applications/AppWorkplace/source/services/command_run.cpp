#include "command_run.h"

#include <QCoreApplication>

#include <utility>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

namespace {

// Properties of the driver.
const QString c_connected = QStringLiteral("connected");
const QString c_lineError = QStringLiteral("lineError");
const QString c_lineState = QStringLiteral("lineState");

const QString c_listenCommand = QStringLiteral("listenEventsData"); // of any plugin
constexpr qint64 c_microsecondsPerMillisecond = 1000;

} // namespace

CommandRun::CommandRun(const LinkedDevice& device, const QString& command, const QMap<QString, QVariant>& parameters,
                       QObject* parent)
    : QObject(parent)
    , m_device(device)
    , m_command(command)
    , m_parameters(parameters)
    , m_wasConnected(device.driver.getProperty(c_connected, QVariant(false)).toBool())
{
    connect(&m_device.host, &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name, const QVariant& value) {
                if (plugin == &m_device.driver) {
                    driverChanged(name, value);
                }
            });
    makeOrder();
}

void CommandRun::makeOrder()
{
    m_order = m_device.host.createOrder(m_device.device, m_command, m_parameters);
    connect(m_order.get(), &DOrder::sigResultsPublished, this, &CommandRun::sigResults);
    connect(m_order.get(), &DOrder::sigFinished, this, &CommandRun::sigEnded);
}

void CommandRun::start(int limitMs)
{
    const int ownLimitMs = isEndless() ? 0 : c_defaultLimitMs;
    m_limitMs = limitMs > 0 ? limitMs : ownLimitMs;
    m_startUs = m_device.clock.nowUs();
    m_order->start(m_limitMs);
}

void CommandRun::beginAnew()
{
    if (m_command != c_listenCommand || m_stop != nullptr) {
        return; // or it is being ended
    }
    DOrder* const old = m_order.release();
    old->disconnect(this);
    old->stop();
    old->deleteLater(); // it may be telling us of a line
    makeOrder();
    const qint64 elapsedMs = (m_device.clock.nowUs() - m_startUs) / c_microsecondsPerMillisecond;
    m_order->start(m_limitMs > 0 ? int(qMax<qint64>(1, m_limitMs - elapsedMs)) : 0);
}

void CommandRun::stop()
{
    if (!isEndless()) {
        m_order->stop();
    } else if (m_stop == nullptr && m_order->plugin() != nullptr) {
        m_stop = m_device.host.createOrder(*m_order->plugin(), m_order->stopCommandName());
        m_stop->start();
    }
}

void CommandRun::driverChanged(const QString& property, const QVariant& value)
{
    if (property == c_connected && value.toBool()) {
        m_wasConnected = true;
    } else if (property == c_lineState && value.toString() == QLatin1String("lost")) {
        m_isLineCutOff = true;
    } else if (property == c_lineState && value.toString() == QLatin1String("open")) {
        if (std::exchange(m_isLineCutOff, false)) {
            beginAnew();
            Q_EMIT sigLineBack();
        }
    } else if (property == c_lineError && !value.toString().isEmpty()) {
        if (isEndless() && m_wasConnected) {
            Q_EMIT sigLineTrouble(value.toString());
        } else {
            m_lineFailure = value.toString();
            m_order->stop();
        }
    }
}

// Who runs commands by name speaks to people as "run".
std::optional<Problem> CommandRun::problem() const
{
    Problem problem{
        Problem::Kind::Device,
        QStringLiteral("run"),
        QCoreApplication::translate("RunCommand", "the command \"%1\" did not succeed").arg(m_order->commandName()),
        {},
        {}};
    if (!m_lineFailure.isEmpty()) {
        problem.kind = Problem::Kind::SetUp;
        problem.cause = m_lineFailure;
        return problem;
    }
    const QMap<QString, QVariant> results = m_order->results();
    switch (m_order->outcome()) {
    case DOrder::Outcome::TimedOut:
        problem.cause = QCoreApplication::translate("RunCommand", "it was ended by the time limit");
        problem.mend = QCoreApplication::translate(
            "RunCommand", "give more time with --limit, and check that the wrench is connected");
        return problem;
    case DOrder::Outcome::Stopped:
        if (isEndless()) {
            return std::nullopt; // that is how it ends
        }
        problem.cause = QCoreApplication::translate("RunCommand", "it was interrupted");
        return problem;
    case DOrder::Outcome::Refused:
    case DOrder::Outcome::Gone:
        problem.cause = QCoreApplication::translate("RunCommand", "the plugin refused it");
        return problem;
    case DOrder::Outcome::Finished:
        if (results.value(QStringLiteral("cmd_success"), true).toBool()) {
            return std::nullopt;
        }
        problem.cause = results
                            .value(QStringLiteral("error"),
                                   QCoreApplication::translate("RunCommand", "the device said no or did not answer"))
                            .toString();
        return problem;
    case DOrder::Outcome::None:
        break;
    }
    return std::nullopt;
}
