#pragma once

#include <QObject>
#include <QVariant>

#include <lib_utilities/clock.h>

#include "device_run.h"
#include "linked_device.h"

class LineObserver;

/// Takes a wrench to one of its programs, for sure: whatever the device plugin believes where it stands. A wrench that
/// is tightening is asked again.
class ProgramSelection : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_busyPauseMs = 500; ///< before a wrench that is tightening is asked again

    /// The observer listens to the same line, and outlives the object.
    ProgramSelection(const LinkedDevice& wrench, const LineObserver& observer, QObject* parent = nullptr);
    ~ProgramSelection() override;

    /// Answers with one of the signals. program: from 1. limitMs: > 0, of each attempt, and for asking again.
    void start(int program, int limitMs);
    /// Nothing more is sent or told.
    void stop();

Q_SIGNALS:
    void sigDone(int program, const QVariantMap& preset);
    /// The wrench has no such program, and stays where it is.
    void sigNoSuchProgram();
    /// By what the wrench said or did. Where it stands now is not known.
    void sigFailed(const QString& cause);
    /// As DeviceRun::sigUnusable().
    void sigUnusable(const QString& cause);

private:
    void goThere();
    void goThereForSure();
    void ended(const DeviceRun::Results& results);
    void lineHeard(const QString& line);

    const LinkedDevice m_wrench;
    const LineObserver& m_observer;
    DeviceRun m_run;
    Clock::TimerId m_retry = 0;
    int m_program = 0;
    int m_limitMs = 0;
    qint64 m_startUs = 0;
};
