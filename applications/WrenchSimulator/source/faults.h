#pragma once

#include "output_queue.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// One thing that goes wrong on purpose, and when.
struct Fault
{
    enum class Kind {
        Silence,    ///< the frame is not heard: no effect, no answer
        Late,       ///< the frame, and all behind it, is answered later
        Error,      ///< "ERR:n" instead of an answer; the frame has no effect
        Split,      ///< what is sent leaves in pieces
        Glue,       ///< lines leave together as one chunk
        Echo,       ///< the wrench repeats the frame before it answers
        OutOfRange, ///< a wrench leaves the dongle's range
        LoseLink,   ///< the link drops and takes the frame along
        Unplug      ///< the line is hung up
    };

    /// Frames are counted from 1, from the moment on at which the fault was set.
    enum class Trigger { Always, AtFrame, FromFrame };

    Kind kind = Kind::Silence;
    int number = 0; ///< Late: ms; Error: code; Split: bytes; Glue: lines; Unplug: ms until it is back, 0: not by itself
    int waitMs = 0; ///< Split: from piece to piece; Glue: at most until the chunk leaves
    QByteArray serial; ///< OutOfRange: which wrench; empty: the linked one
    Trigger trigger = Trigger::Always;
    int frame = 1; ///< for AtFrame and FromFrame

    /// KIND[:ARGUMENTS][@N|@N+], the kinds as in c_faultHelp. Otherwise nothing, and the error says what is wrong and
    /// how to write it.
    static std::optional<Fault> fromText(const QString& text, QString* error);
};

/// How faults are written, for people; lines without an end after the last.
extern const char* const c_faultHelp;

/// What happens to one frame and to what is sent until the next one arrives.
struct Disturbance
{
    bool isSilent = false;
    bool isEchoed = false;
    bool losesLink = false;
    qint64 lateUs = 0;
    std::optional<int> errorCode;
    std::optional<QByteArray> leavesRange; ///< a wrench's serial number; empty: the linked one
    std::optional<int> unplugMs;           ///< 0: does not come back by itself
    ChunkShape shape;
};

/// The list of faults, asked once for each frame that the dongle takes up.
class FaultInjector
{
public:
    void add(const Fault& fault);
    void clear();

    /// Counts one frame.
    void frameTakenUp();

    /// All faults that are on for the frame counted last. Of several that set the same thing the one added last wins,
    /// but delays add up.
    Disturbance current() const;

private:
    struct Entry
    {
        Fault fault;
        int frames; ///< taken up since it was added
    };

    std::vector<Entry> m_entries;
};
