#pragma once

#include <QString>

/// One thing that happened to the link between the session and its wrench.
struct LinkReport
{
    enum class Kind {
        Opened,    ///< the line is open
        Lost,      ///< and why
        Waiting,   ///< for the next attempt to restore it
        Restoring, ///< an attempt has begun
        Restored   ///< the wrench is as it was before
    };
    enum class Cause {
        None,
        Port,   ///< the port is gone, or cannot be opened
        Link,   ///< the dongle has no link to the wrench
        Range,  ///< the dongle cannot reach the wrench
        Silence ///< nobody answers the keep-alive
    };

    Kind kind = Kind::Opened;
    Cause cause = Cause::None; ///< of the loss, until the link is restored
    QString state;             ///< of the line, as the driver names it; of Opened and Lost
    QString message;           ///< what is wrong, or why the attempt before has failed; empty: nothing is
    int attempt = 0;           ///< of Waiting: the one to come; of Restoring and Restored: this one; from 1
    int pauseMs = 0;           ///< of Waiting: until the attempt
    qint64 gapMs = 0;          ///< of Restored: since the loss was noticed
};
