#include "session_service.h"

#include "step_name.h"

SessionService::SessionService(const Session& session, QObject* parent) : QObject(parent)
{
    connect(&session, &Session::sigStepStarted, this, &SessionService::stepStarted);
    connect(&session, &Session::sigResult, this,
            [this] { m_notifier.tellStatus(tr("listening; results so far: %1").arg(++m_results)); });
    connect(&session, &Session::sigFailed, this, [this](const Problem& problem) {
        tellStopping();
        m_notifier.tellStatus(problem.lines().constFirst());
    });
    connect(&session, &Session::sigFinished, this, &SessionService::tellStopping);
    connect(&session, &Session::sigLink, this, [this](const LinkReport& report) {
        if (report.kind != LinkReport::Kind::Restoring) { // it has nothing new to say
            lineErrorChanged(report.message);
        }
    });
    m_notifier.startWatchdog();
}

void SessionService::tellStopping()
{
    if (!m_isStopping) {
        m_isStopping = true;
        m_notifier.stopWatchdog();
        m_notifier.tell("STOPPING=1");
    }
}

void SessionService::stepStarted(Session::Step step)
{
    if (step != Session::Step::Listen) {
        m_notifier.tellStatus(tr("%1 …").arg(shownStep(textOf(step).name)));
        return;
    }
    if (!m_isReady) {
        m_isReady = true;
        m_notifier.tell("READY=1");
    }
    m_notifier.tellStatus(tr("listening; results so far: %1").arg(m_results));
}

void SessionService::lineErrorChanged(const QString& error)
{
    if (!error.isEmpty()) {
        m_notifier.tellStatus(error);
    } else if (m_isReady) {
        m_notifier.tellStatus(tr("listening; results so far: %1").arg(m_results));
    }
}
