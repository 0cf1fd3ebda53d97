#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// One thing that goes wrong on purpose, and when. Some are about a frame that the dongle takes up, the others about a
/// line that it sends.
struct Fault
{
    enum class Kind {
        // about a frame
        Silence,     ///< the frame is not heard: no effect, no answer
        Late,        ///< the frame, and all behind it, is answered later
        Error,       ///< "ERR:n" instead of an answer; the frame has no effect
        Echo,        ///< the wrench repeats the frame before it answers
        ForeignEcho, ///< another wrench's address is echoed: instead of the dialled one, before any other answer
        OutOfRange,  ///< a wrench leaves the dongle's range
        LoseLink,    ///< the link drops and takes the frame along
        Unplug,      ///< the line is hung up
        Flood,       ///< lines that nobody asked for
        Endless,     ///< bytes without a line end that nobody asked for
        // about a line
        DuplicateSerial, ///< a wrench is reported a second time, with an address that nobody has
        Split,           ///< it leaves in pieces
        Glue,            ///< it leaves together with others as one chunk
        Cut,             ///< its rest is lost, and its end with it
        Flip,            ///< bytes of it are changed
        Double,          ///< it is sent twice
        Garbage,         ///< random bytes come before it
        LowerCase        ///< in lower-case letters
    };

    /// Frames are counted from 1, from the moment on at which the fault was set. A fault about lines is on for what is
    /// sent from that frame until the next one. The dice are thrown for each frame, or for each line.
    enum class Trigger { Always, AtFrame, FromFrame, Chance };

    Kind kind = Kind::Silence;
    QString text;      ///< as it was written
    int number = 0;    ///< the first number of the arguments as c_faultHelp has them; 0: left to chance, or not at all
    int waitMs = 0;    ///< Split, Glue, Flood, Endless: the second one; OutOfRange: ms until it is back, 0: stays away
    QByteArray serial; ///< OutOfRange, DuplicateSerial: which wrench; empty: the linked one, all of them
    Trigger trigger = Trigger::Always;
    int frame = 1;       ///< for AtFrame and FromFrame
    double percent = 0.; ///< for Chance

    bool isAboutLines() const { return kind >= Kind::DuplicateSerial; }

    /// True for its own text, and for the word of its kind.
    bool isCalled(const QString& name) const;

    /// KIND[:ARGUMENTS][%P|@N|@N+], the kinds as in c_faultHelp. Otherwise nothing, and the error says what is wrong
    /// and how to write it.
    static std::optional<Fault> fromText(const QString& text, QString* error);
};

/// How faults are written, for people; lines without an end after the last.
extern const char* const c_faultHelp;
