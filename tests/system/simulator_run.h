#pragma once

#include "program_run.h"

#include <QTemporaryDir>

/// A simulator with its console, one program for each wrench that a test needs. Its only report of the wrenches in
/// range comes at once after the scan's frame, so that each run puts the same lines on the line.
class SimulatorRun : public ProgramRun
{
public:
    /// True: its port can be opened.
    bool start(const QStringList& options = {});

    /// The same across unplugging and plugging in again.
    QString port() const { return m_folder.filePath(QStringLiteral("port")); }

    /// Gives a command on its console and returns the answer; empty: there was none.
    QString say(const QString& command);

private:
    QTemporaryDir m_folder;
    int m_answers = 0;
};
