#pragma once

#include <QObject>

#include "../services/session.h"
#include "history_record.h"

class ResultRecorder;

/// A session whose results are stored before anybody is told of them. What session() tells of the wrench, its link and
/// its steps is told from there; what it tells of results and of its end is told from here.
class RecordedSession : public QObject
{
    Q_OBJECT

public:
    /// The device has the commands of a wrench. The recorder outlives the object, and stores for this session only.
    RecordedSession(const LinkedDevice& wrench, const SessionOrder& order, ResultRecorder& recorder,
                    QObject* parent = nullptr);

    Session& session() { return m_session; }

Q_SIGNALS:
    /// It is stored.
    void sigResult(const QVariantMap& eventData, const HistoryRecord& record);
    /// A gap or a repeat, stored.
    void sigNote(const HistoryRecord& note);
    /// At most once. The session ends then.
    void sigFailed(const Problem& problem);
    /// With the totals of what is stored.
    void sigFinished(const SessionSummary& summary);

private:
    void finish(SessionSummary summary);
    void fail(const Problem& problem);

    ResultRecorder& m_recorder;
    Session m_session;
    bool m_hasFailed = false;
};
