#pragma once

#include "command.h"
#include "dongle.h"

#include <QString>

/// What the console can do beyond the dongle.
class LineSwitch
{
public:
    LineSwitch() = default;
    virtual ~LineSwitch() = default;

    /// Both return why they cannot, empty when done. backMs: ms until the line is back, 0: not by itself.
    virtual QString unplug(int backMs, qint64 nowUs) = 0;
    virtual QString replug(qint64 nowUs) = 0;
    virtual void quit() = 0;

private:
    Q_DISABLE_COPY(LineSwitch)
};

/// Carries out the commands of an operator: one line in, one line out, which begins with "ok" or "error". Owns nothing.
class Console
{
public:
    Console(Dongle& dongle, LineSwitch& line);

    /// The answer to a command line, without a line end.
    QString execute(const QString& commandLine, qint64 nowUs);
    QString execute(const Command& command, qint64 nowUs);

private:
    QString tighten(const Command& command, qint64 nowUs);
    QString describeWrenches() const;
    QString switchWrench(const Command& command, qint64 nowUs);
    QString setFault(const Fault& fault);
    QString removeFault(const QString& name);
    QString listFaults() const;
    QString loseLink(qint64 nowUs);

    Dongle& m_dongle;
    LineSwitch& m_line;
};
