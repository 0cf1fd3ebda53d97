#pragma once

#include "replayer.h"
#include "scenario.h"

#include <QString>
#include <QStringList>

/// A trace to play instead of having a dongle.
struct ReplayOptions
{
    QString tracePath; ///< empty: none
    Replayer::Pace pace = Replayer::Pace::Recorded;
};

/// What the command line asks for.
struct Options
{
    Scenario scenario;
    double speed = 1.0; ///< simulated seconds in a second
    ReplayOptions replay;
    QString linkPath;   ///< empty: none
    QString devicePath; ///< empty: a pseudo-terminal
    int baud = 0;       ///< of the dongle on a pseudo-terminal; 0: whatever the other side has set
    bool hasConsole = false;
    bool exitsWithParent = false;
};

/// How a command line was understood.
struct ParsedOptions
{
    enum class Outcome {
        Run,
        Explain, ///< print the text on standard output and end well
        Refuse   ///< print the text on standard error and end with c_exitUsage
    };

    Outcome outcome = Outcome::Refuse;
    Options options;
    QString text;
};

constexpr int c_exitUsage = 2;

/// arguments: the program's name first.
ParsedOptions parseOptions(const QStringList& arguments);
