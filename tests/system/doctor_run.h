#pragma once

#include "workplace_run.h"

/// One run of the doctor, told as events, with a short search.
class DoctorRun : public WorkplaceRun
{
public:
    /// What the doctor complains of.
    struct Complaint
    {
        QString stage;
        QString what;
        QString cause;
        QString mend;
        int exitStatus = -1;
    };

    /// True: it runs.
    bool startDoctor(const QString& port, const QStringList& options = {});
    /// The command line of startDoctor(), for a run that needs something before it.
    static QStringList arguments(const QString& port, const QStringList& options = {});

    /// Of a run that has ended. An empty stage: it complains of nothing.
    Complaint complaint() const;
    /// "passed", "failed", "skipped"; empty: the stage did not end.
    QString stateOf(const QString& stage) const;
    /// The stages in the order in which they ended, each with its state: "port passed".
    QStringList stages() const;
    /// True: the stage has said the text.
    bool waitForNotice(const QString& stage, const QString& text);

    /// What is not as it has to be in what a run with a complaint has told; empty: nothing. In order is: one error, of
    /// the stage that has failed; the stages behind it were skipped; exit status and diagnosis agree.
    QString disorder() const;
};
