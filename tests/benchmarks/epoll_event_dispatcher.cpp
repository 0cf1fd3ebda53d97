#include "epoll_event_dispatcher.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimerEvent>

#include <algorithm>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

// Of Qt's core, for event dispatchers: how many events are posted to this thread.
extern uint qGlobalPostedEventsCount();

namespace {

constexpr int c_readyAtOnce = 64;
// A hang-up is found by reading or writing.
constexpr std::array<unsigned, 3> c_eventsOfType = {EPOLLIN | EPOLLHUP | EPOLLERR, EPOLLOUT | EPOLLHUP | EPOLLERR,
                                                    EPOLLPRI};

} // namespace

EpollEventDispatcher::EpollEventDispatcher()
    : m_epoll(epoll_create1(EPOLL_CLOEXEC)), m_wakeUp(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    epoll_event wanted{};
    wanted.events = EPOLLIN;
    wanted.data.fd = m_wakeUp;
    epoll_ctl(m_epoll, EPOLL_CTL_ADD, m_wakeUp, &wanted);
}

EpollEventDispatcher::~EpollEventDispatcher()
{
    close(m_wakeUp);
    close(m_epoll);
}

bool EpollEventDispatcher::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    m_isInterrupted = false;
    Q_EMIT awake();
    QCoreApplication::sendPostedEvents();
    const bool isWaiting = isWorthWaiting(flags);
    if (isWaiting) {
        Q_EMIT aboutToBlock();
    }
    if (m_isInterrupted) {
        return false;
    }
    std::array<epoll_event, c_readyAtOnce> ready{};
    const int count = epoll_wait(m_epoll, ready.data(), c_readyAtOnce, isWaiting ? millisecondsToNextTimer() : 0);
    bool isBusy = false;
    for (int i = 0; i < count; ++i) {
        isBusy = sendReady(ready.at(std::size_t(i)).data.fd, ready.at(std::size_t(i)).events) || isBusy;
    }
    return sendTimers() || isBusy;
}

bool EpollEventDispatcher::isWorthWaiting(QEventLoop::ProcessEventsFlags flags) const
{
    return flags.testFlag(QEventLoop::WaitForMoreEvents) && !m_isInterrupted && qGlobalPostedEventsCount() == 0;
}

bool EpollEventDispatcher::hasPendingEvents()
{
    return qGlobalPostedEventsCount() > 0;
}

bool EpollEventDispatcher::sendReady(int descriptor, unsigned events)
{
    if (descriptor == m_wakeUp) {
        quint64 times = 0;
        const bool isWoken = read(m_wakeUp, &times, sizeof(times)) > 0;
        m_isWoken = false; // behind the reading: it would take a later one along and leave the mark
        return isWoken;
    }
    bool isSent = false;
    for (std::size_t type = 0; type < c_eventsOfType.size(); ++type) {
        // Looked up each time: what was called before may have taken it away.
        const auto found = m_notifiers.find(descriptor);
        if (found == m_notifiers.end()) {
            break;
        }
        QSocketNotifier* const notifier = found->second.at(type);
        if (notifier != nullptr && (events & c_eventsOfType.at(type)) != 0) {
            QEvent event(QEvent::SockAct);
            QCoreApplication::sendEvent(notifier, &event);
            isSent = true;
        }
    }
    return isSent;
}

void EpollEventDispatcher::registerSocketNotifier(QSocketNotifier* notifier)
{
    const int descriptor = int(notifier->socket());
    const bool isKnown = m_notifiers.count(descriptor) > 0;
    Notifiers& notifiers = m_notifiers[descriptor];
    notifiers.at(notifier->type()) = notifier;
    watch(descriptor, notifiers, isKnown ? EPOLL_CTL_MOD : EPOLL_CTL_ADD);
}

void EpollEventDispatcher::unregisterSocketNotifier(QSocketNotifier* notifier)
{
    const auto found = m_notifiers.find(int(notifier->socket()));
    if (found == m_notifiers.end()) {
        return;
    }
    found->second.at(notifier->type()) = nullptr;
    const bool isEmpty = found->second == Notifiers{};
    watch(found->first, found->second, isEmpty ? EPOLL_CTL_DEL : EPOLL_CTL_MOD);
    if (isEmpty) {
        m_notifiers.erase(found);
    }
}

void EpollEventDispatcher::watch(int descriptor, const Notifiers& notifiers, int operation) const
{
    epoll_event wanted{};
    wanted.data.fd = descriptor;
    for (std::size_t type = 0; type < notifiers.size(); ++type) {
        wanted.events |= notifiers.at(type) == nullptr ? 0 : c_eventsOfType.at(type);
    }
    epoll_ctl(m_epoll, operation, descriptor, &wanted);
}

std::vector<EpollEventDispatcher::Timer>::iterator EpollEventDispatcher::find(int timerId)
{
    return std::find_if(m_timers.begin(), m_timers.end(),
                        [timerId](const Timer& timer) { return timer.id == timerId; });
}

void EpollEventDispatcher::registerTimer(int timerId, int interval, Qt::TimerType timerType, QObject* object)
{
    const std::chrono::milliseconds wait(interval);
    m_timers.push_back({timerId, timerType, wait, Clock::now() + wait, object});
}

bool EpollEventDispatcher::unregisterTimer(int timerId)
{
    const auto found = find(timerId);
    if (found == m_timers.end()) {
        return false;
    }
    m_timers.erase(found);
    return true;
}

bool EpollEventDispatcher::unregisterTimers(QObject* object)
{
    const auto first = std::remove_if(m_timers.begin(), m_timers.end(),
                                      [object](const Timer& timer) { return timer.object == object; });
    const bool isAny = first != m_timers.end();
    m_timers.erase(first, m_timers.end());
    return isAny;
}

QList<QAbstractEventDispatcher::TimerInfo> EpollEventDispatcher::registeredTimers(QObject* object) const
{
    QList<TimerInfo> found;
    for (const Timer& timer : m_timers) {
        if (timer.object == object) {
            found.append(TimerInfo(timer.id, int(timer.interval.count()), timer.type));
        }
    }
    return found;
}

int EpollEventDispatcher::remainingTime(int timerId)
{
    const auto found = find(timerId);
    if (found == m_timers.end()) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(found->due - Clock::now());
    return std::max(0, int(left.count()));
}

int EpollEventDispatcher::millisecondsToNextTimer() const
{
    const auto next = std::min_element(m_timers.cbegin(), m_timers.cend(),
                                       [](const Timer& one, const Timer& other) { return one.due < other.due; });
    if (next == m_timers.cend()) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next->due - Clock::now());
    return std::max(0, int(left.count()));
}

bool EpollEventDispatcher::sendTimers()
{
    const Clock::time_point now = Clock::now();
    std::vector<int> due;
    for (const Timer& timer : m_timers) {
        if (timer.due <= now) {
            due.push_back(timer.id);
        }
    }
    for (const int id : due) {
        const auto timer = find(id); // one that was called before may have stopped it
        if (timer != m_timers.end()) {
            timer->due = std::max(timer->due + timer->interval, now);
            QTimerEvent event(id);
            QCoreApplication::sendEvent(timer->object, &event);
        }
    }
    return !due.empty();
}

void EpollEventDispatcher::wakeUp()
{
    if (!m_isWoken.exchange(true)) {
        const quint64 once = 1;
        const ssize_t size = write(m_wakeUp, &once, sizeof(once));
        Q_UNUSED(size)
    }
}

void EpollEventDispatcher::interrupt()
{
    m_isInterrupted = true;
    wakeUp();
}

void EpollEventDispatcher::flush() {}
