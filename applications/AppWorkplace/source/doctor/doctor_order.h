#pragma once

#include <QString>

/// What an examination is asked to do.
struct DoctorOrder
{
    QString port;         ///< as people know it
    QString serialId;     ///< of the wrench; empty: not said, the only one in range
    int scanMs = 5000;    ///< how long to listen for wrenches
    int stageLimitMs = 0; ///< limit of each wait for an answer; 0: each wait's own
    int waitResultMs = 0; ///< how long to wait for a tightening; 0: no result is asked for
};
