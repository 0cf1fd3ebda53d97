#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QObject>

#include <lib_utilities/clock.h>

/// The machine's monotonic clock, with precise Qt timers of the thread it lives on.
class LIB_UTILITIES_EXPORT SystemClock : public QObject, public Clock
{
    Q_OBJECT

public:
    explicit SystemClock(QObject* parent = nullptr);

    qint64 nowUs() const override;
    TimerId callAfter(int delayMs, Action action) override;
    void cancel(TimerId timer) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Pending
    {
        TimerId timer;
        Action action;
    };

    QElapsedTimer m_elapsed;
    TimerId m_lastTimer = 0;
    QHash<TimerId, int> m_qtTimers; // Qt uses its timer ids again, ours are given once
    QHash<int, Pending> m_pending;  // by the id of the Qt timer
};
