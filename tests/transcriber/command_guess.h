#pragma once

#include <QString>
#include <QVector>

struct TraceItem;

/// A command's run as the frames of a trace show it.
struct CommandGuess
{
    QString name;               ///< empty: these frames begin no command
    QString parameters;         ///< "name=value …", as in a transcript
    QString given;              ///< properties that it needs, when the plugin does not have them
    bool needsSerialId = false; ///< the trace does not tell it
};

/// Which command the frame at that place begins. What the frames cannot tell apart is taken for the simpler one: a
/// single "DT:1" for setLock, and so is the selection of the current program, which only unlocks.
CommandGuess guessCommand(const QVector<TraceItem>& items, int at);
