#include <lib_utilities/system_clock.h>

#include <QTimerEvent>

namespace {
constexpr qint64 c_nanosecondsPerMicrosecond = 1000;
}

Clock::~Clock() = default;

SystemClock::SystemClock(QObject* parent) : QObject(parent)
{
    m_elapsed.start();
}

qint64 SystemClock::nowUs() const
{
    return m_elapsed.nsecsElapsed() / c_nanosecondsPerMicrosecond;
}

Clock::TimerId SystemClock::callAfter(int delayMs, Action action)
{
    const TimerId timer = ++m_lastTimer;
    const int qtTimer = startTimer(delayMs, Qt::PreciseTimer);
    m_qtTimers.insert(timer, qtTimer);
    m_pending.insert(qtTimer, {timer, std::move(action)});
    return timer;
}

void SystemClock::cancel(TimerId timer)
{
    const auto found = m_qtTimers.constFind(timer);
    if (found != m_qtTimers.constEnd()) {
        killTimer(*found);
        m_pending.remove(*found);
        m_qtTimers.erase(found);
    }
}

void SystemClock::timerEvent(QTimerEvent* event)
{
    killTimer(event->timerId());
    // Taken out first: the action may ask for another timer or destroy the clock.
    const Pending pending = m_pending.take(event->timerId());
    m_qtTimers.remove(pending.timer);
    if (pending.action) {
        pending.action();
    }
}
