#pragma once

#include "command.h"
#include "dongle.h"

#include <vector>

/// Something that happens by itself at its time.
struct Event
{
    qint64 atUs = 0; ///< from the beginning of the time line
    QString text;    ///< the command as it was written
    Command command;
};

/// All that decides what a simulation does, apart from what it is sent.
struct Scenario
{
    /// Where the time line begins.
    enum class TimeLineFrom {
        Start,     ///< with the simulator
        FirstFrame ///< with the first frame that the dongle takes up: however long the other side needs to begin
    };

    /// One wrench, 2210, as its first one; no faults, no events.
    Scenario();

    Dongle::Settings dongle;
    std::vector<Wrench::Settings> wrenches; ///< at least one
    std::vector<QByteArray> outOfRange;     ///< the addresses of those that are not in range at the beginning
    std::vector<Fault> faults;
    std::vector<Event> events; ///< by time; at the same time as they were written
    TimeLineFrom timeLineFrom = TimeLineFrom::Start;
    quint32 seed = 1;

    /// As it is when nothing else is said. number: counts the wrenches from 1, and makes its address.
    static Wrench::Settings defaultWrench(int number);
};

/// What can stand as a serial number or a model: one word of printable characters without a comma.
bool isWord(const QString& text);

/// AA:BB:CC:DD:EE:FF, in either case.
bool isAddress(const QString& text);
