#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include <lib_utilities/clock.h>

/// A clock that stands still until it is turned. Actions run inside advance(), each at its own moment, in the order of
/// their moments; of the same moment, in the order in which they were asked for.
class ManualClock : public Clock
{
public:
    qint64 nowUs() const override { return m_nowUs; }

    TimerId callAfter(int delayMs, Action action) override
    {
        const TimerId timer = ++m_lastTimer;
        m_waiting.emplace(Moment(m_nowUs + delayMs * c_usPerMs, timer), std::move(action));
        return timer;
    }

    void cancel(TimerId timer) override
    {
        for (auto each = m_waiting.begin(); each != m_waiting.end(); ++each) {
            if (each->first.second == timer) {
                m_waiting.erase(each);
                return;
            }
        }
    }

    /// Turns the clock by ms milliseconds (>= 0) and runs what becomes due, also what is asked for on the way.
    void advance(qint64 ms)
    {
        const qint64 endUs = m_nowUs + ms * c_usPerMs;
        while (step(endUs)) {
        }
    }

    /// As when something else holds the event loop up: time passes, and what becomes due runs late, when the clock is
    /// turned the next time.
    void holdUp(qint64 ms) { m_nowUs += ms * c_usPerMs; }

    /// When the next action is due; nothing: none is waiting.
    std::optional<qint64> nextDueUs() const
    {
        return m_waiting.empty() ? std::nullopt : std::optional<qint64>(m_waiting.begin()->first.first);
    }

    /// Turns the clock to that moment (not before nowUs()), and runs the next action when it is due by then. False: it
    /// was not, or there is none.
    bool step(qint64 untilUs)
    {
        if (m_waiting.empty() || m_waiting.begin()->first.first > untilUs) {
            m_nowUs = untilUs;
            return false;
        }
        const auto due = m_waiting.begin();
        m_nowUs = std::max(m_nowUs, due->first.first);
        // Taken out first: the action may ask for another timer.
        const Action action = std::move(due->second);
        m_waiting.erase(due);
        action();
        return true;
    }

    /// Actions that are still to come.
    int waiting() const { return static_cast<int>(m_waiting.size()); }

private:
    using Moment = std::pair<qint64, TimerId>; // in microseconds
    static constexpr qint64 c_usPerMs = 1000;

    qint64 m_nowUs = 0;
    TimerId m_lastTimer = 0;
    std::map<Moment, Action> m_waiting;
};
