#pragma once

#include <QCommandLineParser>
#include <QObject>
#include <QStringList>

#include "../services/settings.h"
#include "console.h"
#include "problem_report.h"

struct CliEntry;

/// What a command of the program is given.
struct CliContext
{
    Console& console;
    Settings settings;
    QStringList arguments;                    ///< behind the command's name
    const QCommandLineParser& options;        ///< parsed
    const QList<CliEntry>* entries = nullptr; ///< all commands of the program, for those that tell of them
};

/// One command of the program at work: started once, ends with sigDone.
class CliCommand : public QObject
{
    Q_OBJECT

public:
    explicit CliCommand(const CliContext& context) : m_console(context.console), m_settings(context.settings) {}

    virtual void start() = 0;
    /// Ends in an orderly way.
    virtual void interrupt() { Q_EMIT sigDone(0); }

Q_SIGNALS:
    void sigDone(int exitStatus);

protected:
    void tell(const Problem& problem) { tellProblem(m_console, problem); }

    Console& m_console;
    const Settings m_settings;
};
