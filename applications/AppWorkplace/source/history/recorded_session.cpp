#include "recorded_session.h"

#include "result_recorder.h"

RecordedSession::RecordedSession(const LinkedDevice& wrench, const SessionOrder& order, ResultRecorder& recorder,
                                 QObject* parent)
    : QObject(parent), m_recorder(recorder), m_session(wrench, order)
{
    // A session's own commands, of its steps, of orders and of a link that is being restored, may hear chunks that it
    // does not.
    connect(&m_session, &Session::sigStepStarted, &m_recorder, &ResultRecorder::forgetChunk);
    connect(&m_session, &Session::sigLink, &m_recorder, &ResultRecorder::forgetChunk);
    connect(&m_session, &Session::sigOrderEnded, &m_recorder, &ResultRecorder::forgetChunk);
    connect(&m_session, &Session::sigChunk, &m_recorder, &ResultRecorder::takeChunk);
    connect(&m_session, &Session::sigResult, this, [this](const TighteningResult& result) {
        if (!m_recorder.take(result)) {
            m_session.discount(result);
        }
    });
    connect(&m_session, &Session::sigFailed, this, &RecordedSession::fail);
    connect(&m_session, &Session::sigFinished, this, &RecordedSession::finish);
    connect(&m_recorder, &ResultRecorder::sigResult, this, &RecordedSession::sigResult);
    connect(&m_recorder, &ResultRecorder::sigNote, this, &RecordedSession::sigNote);
    connect(&m_recorder, &ResultRecorder::sigFailed, &m_session, &Session::fail);
}

void RecordedSession::finish(SessionSummary summary)
{
    m_recorder.flush();
    if (m_recorder.failure()) {
        if (!m_hasFailed) { // it was ending when the last results could not be stored
            fail(*m_recorder.failure());
        }
        summary.end = SessionSummary::End::Failure;
    }
    summary.good = m_recorder.good();
    summary.notGood = m_recorder.notGood();
    Q_EMIT sigFinished(summary);
}

void RecordedSession::fail(const Problem& problem)
{
    m_hasFailed = true;
    Q_EMIT sigFailed(problem);
}
