#include "session_watch.h"

#include "simulated_workplace.h"

SessionWatch::SessionWatch(SimulatedWorkplace& workplace, Session& session) : m_workplace(workplace)
{
    connect(&session, &Session::sigStepStarted, this, [this](Session::Step started) {
        told();
        step = started;
        stepStart = now();
        if (started == SessionStep::Listen) {
            listenUs = stepStart.atUs;
        }
    });
    connect(&session, &Session::sigStepDone, this, &SessionWatch::told);
    connect(&session, &Session::sigWrenchesHeard, this, &SessionWatch::told);
    connect(&session, &Session::sigPrograms, this, &SessionWatch::told);
    connect(&session, &Session::sigSelected, this, &SessionWatch::told);
    connect(&session, &Session::sigNamesakes, this, &SessionWatch::told);
    connect(&session, &Session::sigUnverified, this, [this] {
        told();
        unverified = now();
    });
    connect(&session, &Session::sigLink, this, [this](const LinkReport& report) {
        told();
        if (report.kind == LinkReport::Kind::Restored) {
            loss.reset();
        } else if (report.kind == LinkReport::Kind::Lost && step == SessionStep::Listen) {
            lossSince = loss ? lossSince : now();
            loss = report;
        }
    });
    connect(&session, &Session::sigReady, this, &SessionWatch::told);
    connect(&session, &Session::sigResult, this, [this](const TighteningResult& result) {
        told();
        results.append(result);
    });
    connect(&session, &Session::sigFailed, this, [this](const Problem& what) {
        told();
        ++problems;
        problem = what;
        ended = now();
    });
    connect(&session, &Session::sigFinished, this, [this](const SessionSummary& what) {
        told();
        ++finished;
        summary = what;
    });
}

SessionWatch::Moment SessionWatch::now() const
{
    return {m_workplace.record.size(), m_workplace.clock.nowUs()};
}

void SessionWatch::told()
{
    toldAfterTheEnd += isFinished() ? 1 : 0;
}
