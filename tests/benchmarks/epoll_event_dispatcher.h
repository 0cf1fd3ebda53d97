#pragma once

#include <QAbstractEventDispatcher>

#include <array>
#include <atomic>
#include <chrono>
#include <unordered_map>
#include <vector>

/// An event loop that waits with epoll, as little of one as a workplace without a window needs: Qt's own ask the kernel
/// about every descriptor each time they wait, this one is told of those that are ready. All timers are precise to a
/// millisecond, whatever they ask for.
class EpollEventDispatcher final : public QAbstractEventDispatcher
{
public:
    EpollEventDispatcher();
    ~EpollEventDispatcher() override;
    Q_DISABLE_COPY_MOVE(EpollEventDispatcher)

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override;

    void registerSocketNotifier(QSocketNotifier* notifier) override;
    void unregisterSocketNotifier(QSocketNotifier* notifier) override;

    void registerTimer(int timerId, int interval, Qt::TimerType timerType, QObject* object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject* object) override;
    QList<TimerInfo> registeredTimers(QObject* object) const override;
    int remainingTime(int timerId) override;

    void wakeUp() override;
    void interrupt() override;
    void flush() override;

private:
    using Clock = std::chrono::steady_clock;

    struct Timer
    {
        int id;
        Qt::TimerType type;
        std::chrono::milliseconds interval;
        Clock::time_point due;
        QObject* object;
    };

    /// By QSocketNotifier::Type.
    using Notifiers = std::array<QSocketNotifier*, 3>;

    bool isWorthWaiting(QEventLoop::ProcessEventsFlags flags) const;
    int millisecondsToNextTimer() const;
    bool sendTimers();
    bool sendReady(int descriptor, unsigned events);
    void watch(int descriptor, const Notifiers& notifiers, int operation) const;
    std::vector<Timer>::iterator find(int timerId);

    int m_epoll;
    int m_wakeUp;
    std::atomic_bool m_isWoken{false};
    std::atomic_bool m_isInterrupted{false};
    std::unordered_map<int, Notifiers> m_notifiers;
    std::vector<Timer> m_timers;
};
