#include "simulated_workplace.h"

#include "dongle_port.h"
#include "p_driver_serial.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>
#include <QTimerEvent>

#include <algorithm>

#include <lib_plugins_management/d_abstract_command.h>
#include <lib_plugins_management/host/d_plugin_loader.h>

namespace {
constexpr qint64 c_usPerMs = 1000;

/// A plugin instance owns its clock; here all of them share one.
class SharedClock : public Clock
{
public:
    explicit SharedClock(ManualClock& clock) : m_clock(clock) {}
    qint64 nowUs() const override { return m_clock.nowUs(); }
    TimerId callAfter(int delayMs, Action action) override { return m_clock.callAfter(delayMs, std::move(action)); }
    void cancel(TimerId timer) override { m_clock.cancel(timer); }

private:
    ManualClock& m_clock;
};

/// Makes one instance of the driver, on a port and a clock that are given.
class DriverRoot : public PDriverSerial
{
public:
    DriverRoot(std::unique_ptr<ISerialPort> port, ManualClock& clock) : m_port(std::move(port)), m_clock(clock) {}
    IPlugin* createInstance(const QUuid& uuid) const override
    {
        return new PDriverSerial(uuid, std::move(m_port), std::make_unique<SharedClock>(m_clock), nullptr);
    }

private:
    mutable std::unique_ptr<ISerialPort> m_port;
    ManualClock& m_clock;
};
} // namespace

SimulatedWorkplace::SimulatedWorkplace(const QStringList& options, QJsonObject driverSettings) : host(clock)
{
    auto port = std::make_unique<DonglePort>(options, clock, record);
    m_port = port.get();
    const DriverRoot driverRoot(std::move(port), clock);
    auto configuration = QSharedPointer<QJsonObject>::create();
    driverSettings.insert(QStringLiteral("port"), QStringLiteral("/dev/simulated"));
    configuration->insert(PDriverSerial::getPluginId().toString(), driverSettings);
    driver = host.createInstance(driverRoot, QUuid::createUuid(), configuration);
    // The device plugin as it is built: linked in, it and the driver would have classes of the same names.
    const DAbstractPlugin* deviceRoot = DPluginLoader().loadFile(QStringLiteral(DEVICE_PLUGIN));
    if (deviceRoot == nullptr) {
        qFatal("%s is not built", DEVICE_PLUGIN);
    }
    device = host.createInstance(*deviceRoot, QUuid::createUuid());
    host.linkDriver(*device, *driver);
    m_prototypes = commandCount();
}

SimulatedWorkplace::~SimulatedWorkplace() = default;

LinkedDevice SimulatedWorkplace::linked()
{
    return {host, clock, *device, *driver, m_port->file()};
}

bool SimulatedWorkplace::runUntil(const std::function<bool()>& condition, int limitMs)
{
    const qint64 endUs = clock.nowUs() + limitMs * c_usPerMs;
    turn();
    while (!condition()) {
        watchTimers();
        const qint64 dueUs = nextDueUs(endUs);
        if (!clock.step(dueUs)) {
            if (dueUs >= endUs) {
                return false;
            }
            runDue();
        }
        turn(); // after each single action, so that nothing happens at once that would not on a machine
    }
    return true;
}

void SimulatedWorkplace::run(int ms)
{
    runUntil([] { return false; }, ms);
}

void SimulatedWorkplace::turn()
{
    QAbstractEventDispatcher* dispatcher = QCoreApplication::eventDispatcher();
    bool wasBusy = true;
    while (wasBusy) {
        wasBusy = dispatcher->processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void SimulatedWorkplace::commandLater(int delayMs, const QString& text)
{
    clock.callAfter(delayMs, [this, text] { m_port->command(text); });
}

int SimulatedWorkplace::runningCommands() const
{
    return commandCount() - m_prototypes;
}

qint64 SimulatedWorkplace::nextDueUs(qint64 untilUs) const
{
    qint64 dueUs = std::min(untilUs, clock.nextDueUs().value_or(untilUs));
    if (const std::optional<qint64> dongleUs = m_port->nextDueUs()) {
        dueUs = std::min(dueUs, std::max(*dongleUs, clock.nowUs()));
    }
    for (const PlainTimer& timer : m_timers) {
        dueUs = std::min(dueUs, timer.dueUs);
    }
    return dueUs;
}

/// What the clock does not know of: the dongle, and the timers of Qt.
void SimulatedWorkplace::runDue()
{
    m_port->advance();
    const auto due = std::find_if(m_timers.begin(), m_timers.end(),
                                  [this](const PlainTimer& timer) { return timer.dueUs <= clock.nowUs(); });
    if (due != m_timers.end()) {
        QTimerEvent event(due->id);
        QTimer* timer = due->timer;
        m_timers.erase(due); // its interval begins again; who is still active is looked up in the next turn
        QCoreApplication::sendEvent(timer, &event);
    }
}

/// Qt's timers go by the machine's clock, which hardly moves while a session of minutes is over. So each active one is
/// noted with the moment at which it is due by our clock, and is sent its event then. A timer that is started anew has
/// a new id, and one that has gone off once begins its interval again.
void SimulatedWorkplace::watchTimers()
{
    QVector<PlainTimer> active;
    const QList<QTimer*> timers = host.findChildren<QTimer*>();
    for (QTimer* timer : timers) {
        if (!timer->isActive() || timer->interval() == 0) {
            continue;
        }
        const auto known = std::find_if(m_timers.cbegin(), m_timers.cend(), [timer](const PlainTimer& each) {
            return each.timer == timer && each.id == timer->timerId();
        });
        const qint64 dueUs = known == m_timers.cend() ? clock.nowUs() + timer->interval() * c_usPerMs : known->dueUs;
        active.append({timer, timer->timerId(), dueUs});
    }
    m_timers = active;
}

/// The plugins' own prototypes among them.
int SimulatedWorkplace::commandCount() const
{
    return device->findChildren<DAbstractCommand*>().size() + driver->findChildren<DAbstractCommand*>().size();
}
