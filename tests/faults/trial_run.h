#pragma once

#include <QByteArrayList>

#include "cell_outcome.h"
#include "fault_trial.h"

/// What became of one trial in one process and in simulated time.
struct TrialRun
{
    CellOutcome outcome;
    TrialTraces traces;
    QString complaint;       ///< what must not happen in any cell did: a hang, a loss, a wrong name; empty: nothing
    bool isLinkAway = false; ///< at the end of a session
    int framesBefore = 0;    ///< that were sent until the command started; none for a session
    QByteArrayList frames;   ///< of the command's own exchange, or of the session until its end, without line ends
};

/// fault: with its trigger; empty: none.
TrialRun runTrial(const FaultTrial& trial, const QString& fault);
