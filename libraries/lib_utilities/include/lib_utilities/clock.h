#pragma once

#include <QtGlobal>

#include <functional>

#include <lib_utilities/export.h>

/// Where time comes from. Whatever waits is given a clock, so that a test can turn it by hand.
/// One thread: actions run on the thread that asked for them.
class LIB_UTILITIES_EXPORT Clock
{
public:
    using Action = std::function<void()>;
    using TimerId = quint64; ///< 0: none

    Clock() = default;
    virtual ~Clock();

    /// Monotonic time in microseconds since an unnamed moment.
    virtual qint64 nowUs() const = 0;

    /// Calls the action once, from the event loop, when delayMs milliseconds (>= 0) have passed.
    virtual TimerId callAfter(int delayMs, Action action) = 0;

    /// Forgets the action. An id that is 0, unknown or already called is no error.
    virtual void cancel(TimerId timer) = 0;

private:
    Q_DISABLE_COPY(Clock)
};
