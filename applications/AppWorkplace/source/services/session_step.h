#pragma once

#include <QString>

/// The steps of a session, in their order.
enum class SessionStep { Open, Connect, Configure, Programs, Select, Unlock, Listen };

struct SessionStepText
{
    QString name;
    int limitMs = 0; ///< how long the step may take; 0: no limit
    QString failure; ///< what is said when it fails
    QString mend;    ///< what to do then
};

SessionStepText textOf(SessionStep step);
