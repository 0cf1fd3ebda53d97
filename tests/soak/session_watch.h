#pragma once

#include <QObject>
#include <QVector>

#include <optional>

#include "services/session.h"

class SimulatedWorkplace;

/// Notes what a session tells, and where on the line it did.
class SessionWatch : public QObject
{
    Q_OBJECT

public:
    SessionWatch(SimulatedWorkplace& workplace, Session& session);

    bool isFinished() const { return finished > 0; }
    bool succeeded() const { return isFinished() && !problem; }

    /// What the line's record held and what time it was when something happened.
    struct Moment
    {
        int entries = 0;
        qint64 atUs = 0;
    };

    Moment now() const;

    SessionStep step = SessionStep::Open;
    Moment stepStart;
    std::optional<Moment> unverified; ///< from here on results of a wrench that is not known are taken
    std::optional<Moment> ended;      ///< by a problem, by its last result, or as whoever ends it sets it
    std::optional<Problem> problem;
    QVector<TighteningResult> results;
    std::optional<LinkReport> loss; ///< of the link, while it listens, and not restored
    Moment lossSince;
    qint64 listenUs = 0; ///< when the step of listening began
    SessionSummary summary;
    int finished = 0;
    int problems = 0;
    int toldAfterTheEnd = 0; ///< signals behind sigFinished

private:
    void told();

    SimulatedWorkplace& m_workplace;
};
