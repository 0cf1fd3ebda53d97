#pragma once

#include "line_trace.h"
#include "program_run.h"

#include <QJsonObject>
#include <QTemporaryDir>

class SimulatorRun;

/// One run of the workplace's command line, with a folder of its own for what it stores and for the line's trace.
class WorkplaceRun : public ProgramRun
{
public:
    /// Before the start: what is stored of a device is shared with other runs in this folder.
    void keepStoreIn(const QString& folder) { m_store = folder; }

    /// True: it runs.
    bool start(const QStringList& arguments);
    bool startOn(const QString& port, const QStringList& arguments);
    /// A session with the simulator's wrench, told as events.
    bool startSession(const SimulatorRun& simulator, const QStringList& options = {});

    /// Lines that are JSON objects. event: only those of this name.
    QList<QJsonObject> events(const QString& event = {}) const;
    /// The first of this name; empty: there is none.
    QJsonObject event(const QString& event) const;
    bool waitForEvents(const QString& event, int count = 1);

    LineTrace trace() const;
    QString traceFile() const { return m_folder.filePath(QStringLiteral("trace")); }
    /// True: as many frames, or more, have been written to the line.
    bool waitForFrames(int count);

private:
    QTemporaryDir m_folder;
    QString m_store = m_folder.path();
};

/// The session has unlocked its wrench: from now on a tightening is a result of it. False: it has not within the time.
bool waitForUnlock(WorkplaceRun& session, SimulatorRun& simulator);

/// What is not as it has to be after a session on the simulator's line, however it ended; empty: all is in order. In
/// order is: the dongle was told to hang up and did, the port was closed after that and is free.
QString disorderAfter(WorkplaceRun& session, SimulatorRun& simulator);
