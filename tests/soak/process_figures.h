#pragma once

#include <QString>

/// What this process takes of the machine, from /proc, and what whoever asks adds to it.
struct ProcessFigures
{
    static ProcessFigures now();
    QString text() const;

    qint64 residentKb = 0;
    int descriptors = 0;
    int threads = 0;
    int timers = 0;   ///< that are waiting
    int commands = 0; ///< that run
};
