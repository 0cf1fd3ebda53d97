#pragma once

#include <QtGlobal>

/// What a session came to.
struct SessionSummary
{
    enum class End { Count, Duration, Interrupt, Failure };

    End end = End::Failure;
    int good = 0;
    int notGood = 0;
    int program = 0; ///< the current one as the device plugin records it; 0: not known
    qint64 elapsedMs = 0;
};
