#pragma once

#include <QString>

#include <optional>

/// What a session is asked to do.
struct SessionOrder
{
    QString serialId;
    std::optional<int> program; ///< none: the wrench's selection is left alone
    int results = 0;            ///< how many to take; 0: no end by count
    int durationMs = 0;         ///< how long to listen; 0: no end by time
    int stepLimitMs = 0;        ///< time limit of each step; 0: each step's own
    bool reconnects = true;     ///< a link that is lost while it listens is restored; false: that ends the session
    int reconnectLimitMs = 0;   ///< how long the link may be away; 0: Supervisor::c_defaultLimitMs
    quint32 pauseSeed = 0;      ///< of the pauses between attempts to restore it; 0: a new one each time
    bool listens = true; ///< false: it gets ready to listen, and leaves the wrench to somebody else until its end
};
