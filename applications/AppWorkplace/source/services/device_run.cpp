#include "device_run.h"

#include <lib_plugins_management/host/d_host.h>

#include <utility>

#include "line_observer.h"

namespace {

constexpr double c_millisecondsPerSecond = 1000;

} // namespace

DeviceRun::DeviceRun(const LinkedDevice& device, const LineObserver& observer, QObject* parent)
    : QObject(parent), m_device(device), m_observer(observer)
{}

DeviceRun::~DeviceRun() = default;

void DeviceRun::start(const QString& command, const Results& parameters, int limitMs, Continuation then)
{
    m_order = m_device.host.createOrder(m_device.device, command, parameters);
    if (m_order == nullptr) {
        Q_EMIT sigUnusable(tr("the device plugin has no command \"%1\"").arg(command));
        return;
    }
    connect(m_order.get(), &DOrder::sigFinished, this, [this, limitMs, then = std::move(then)] {
        const std::unique_ptr<DOrder, void (*)(DOrder*)> order(m_order.release(),
                                                               [](DOrder* gone) { gone->deleteLater(); });
        ended(*order, limitMs, then);
    });
    m_order->start(limitMs);
}

void DeviceRun::stop()
{
    if (DOrder* running = m_order.release()) {
        running->disconnect(this);
        running->stop();
        running->deleteLater(); // it may be telling us of its end
    }
}

QString DeviceRun::limitReached(int limitMs) const
{
    return tr("the time limit of %1 s ended it, %2")
        .arg(limitMs / c_millisecondsPerSecond)
        .arg(m_observer.refusalOr(tr("there was no answer")));
}

void DeviceRun::ended(const DOrder& order, int limitMs, const Continuation& then)
{
    switch (order.outcome()) {
    case DOrder::Outcome::Finished:
        then(order.results());
        break;
    case DOrder::Outcome::TimedOut:
        Q_EMIT sigFailed(limitReached(limitMs));
        break;
    case DOrder::Outcome::Stopped:
        break;
    case DOrder::Outcome::None:
    case DOrder::Outcome::Refused:
    case DOrder::Outcome::Gone:
        Q_EMIT sigUnusable(tr("the device plugin refused \"%1\"").arg(order.commandName()));
        break;
    }
}
