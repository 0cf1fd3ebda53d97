#pragma once

#include <QString>

#include "../services/heard_wrenches.h"
#include "doctor_order.h"
#include "line_talk.h"
#include "wrench_lock.h"

/// What the stages of an examination share: whom they talk to, and what those before have found out.
struct DoctorBench
{
    /// host and clock outlive the bench.
    DoctorBench(DHost& hostOfAll, Clock& clockOfAll, const DoctorOrder& orderOfAll)
        : host(hostOfAll)
        , clock(clockOfAll)
        , order(orderOfAll)
        , talk(hostOfAll, clockOfAll)
        , lock(talk, orderOfAll.stageLimitMs)
        , serialId(orderOfAll.serialId)
    {}

    DHost& host;
    Clock& clock;
    const DoctorOrder order;
    DAbstractPlugin* device = nullptr; ///< null until the plugins are there
    DAbstractPlugin* driver = nullptr;
    LineTalk talk;
    WrenchLock lock;
    HeardWrenches heard;
    QString serialId;        ///< of the wrench that is examined; empty: not known
    QString address;         ///< of the same, without colons
    bool holdsALink = false; ///< the dongle has a link that it does not hang up
};
