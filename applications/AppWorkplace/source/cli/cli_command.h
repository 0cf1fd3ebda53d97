#pragma once

#include <QCommandLineParser>
#include <QObject>
#include <QStringList>

#include "../services/problem.h"
#include "../services/settings.h"
#include "console.h"

/// What a command of the program is given.
struct CliContext
{
    Console& console;
    Settings settings;
    QStringList arguments;             ///< behind the command's name
    const QCommandLineParser& options; ///< parsed
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
    /// Tells of the problem, for people and, where asked, for programs.
    void tell(const Problem& problem)
    {
        m_console.message(QStringLiteral("%1: %2").arg(problem.step, problem.message()));
        if (m_console.isJson()) {
            m_console.object({{QStringLiteral("event"), QStringLiteral("error")},
                              {QStringLiteral("step"), problem.step},
                              {QStringLiteral("message"), problem.what},
                              {QStringLiteral("reason"), problem.cause},
                              {QStringLiteral("mend"), problem.mend}});
        }
    }

    Console& m_console;
    const Settings m_settings;
};
