#pragma once

#include <QMap>
#include <QVariant>

#include <memory>

#include "../history/recording.h"
#include "../services/command_run.h"
#include "../services/line_end.h"
#include "../services/session.h"
#include "command_line.h"
#include "workplace_command.h"

/// `run`: one command of a plugin, with its results as they come.
class RunCommand : public WorkplaceCommand
{
    Q_OBJECT

public:
    RunCommand(const CliContext& context, int limitMs);

    static CliEntry entry();

    void interrupt() override;

protected:
    std::optional<Problem> check() override;
    void begin() override;

private:
    void connectWrench(const DAbstractPlugin& device);
    LinkedDevice wrench(const DAbstractPlugin& root);
    void execute();
    /// Hangs up, if this command has connected, closes the port and ends.
    void finish(int exitStatus);
    void take(const QMap<QString, QVariant>& values);
    void show(const QMap<QString, QVariant>& values);
    void ended();

    QString m_target;  // "driver" or empty: what stood before the "/"
    QString m_command; // as given
    const QStringList m_parameters;
    const int m_limitMs;
    const bool m_connects;
    const DAbstractPlugin* m_root = nullptr; // the plugin that has the command
    QMap<QString, QVariant> m_values;        // the parameters, read
    std::unique_ptr<Recording> m_recording;  // null: the command delivers no tightening results
    std::unique_ptr<Session> m_session;      // null: the command does not connect
    std::unique_ptr<LineEnd> m_lineEnd;
    std::unique_ptr<CommandRun> m_run;
    bool m_isReconnected = false; // since the last result
    int m_exitStatus = 0;
};
