#pragma once

#include "dongle.h"

#include <QString>
#include <QStringList>

/// What the console can do beyond the dongle.
class LineSwitch
{
public:
    LineSwitch() = default;
    virtual ~LineSwitch() = default;

    /// Both return why they cannot, empty when done.
    virtual QString unplug() = 0;
    virtual QString replug() = 0;
    virtual void quit() = 0;

private:
    Q_DISABLE_COPY(LineSwitch)
};

/// The commands of an operator: one line in, one line out, which begins with "ok" or "error". Owns nothing.
class Console
{
public:
    Console(Dongle& dongle, LineSwitch& line);

    /// The answer to a command line, without a line end.
    QString execute(const QString& commandLine, qint64 nowUs);

private:
    QString tighten(const QStringList& arguments, qint64 nowUs);
    QString describeWrenches() const;
    QString setRange(const QStringList& arguments, qint64 nowUs);
    QString setFault(const QStringList& arguments);
    QString loseLink(qint64 nowUs);

    Dongle& m_dongle;
    LineSwitch& m_line;
};
