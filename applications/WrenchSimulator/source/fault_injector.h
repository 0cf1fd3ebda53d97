#pragma once

#include "fault.h"
#include "output_queue.h"
#include "random_source.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <vector>

/// So many lines or bytes that nobody asked for, and in what time.
struct Babble
{
    int count = 0;
    qint64 durationUs = 0;
};

/// A wrench that leaves range.
struct Leave
{
    QByteArray serial; ///< empty: the linked one
    qint64 backUs = 0; ///< 0: it stays away
};

/// What happens to one frame.
struct Disturbance
{
    bool isSilent = false;
    bool isEchoed = false;
    bool hasForeignEcho = false;
    bool losesLink = false;
    qint64 lateUs = 0;
    std::optional<int> errorCode;
    std::optional<Leave> leave;
    std::optional<int> unplugMs; ///< 0: does not come back by itself
    std::optional<Babble> flood;
    std::optional<Babble> endless;
};

/// A line as it is sent.
struct DisturbedLine
{
    QByteArray bytes; ///< with its end, if it still has one
    ChunkShape shape;
};

/// The list of faults. Asked once for each frame that the dongle takes up and for each line that it sends.
///
/// Each fault has random streams of its own, made of the seed, its own text, and how many of the same text were set
/// before. So one more fault, or one less, leaves the dice of the others as they were; and the bytes that a fault
/// invents come from another stream than its dice, so that a longer line does not shift them either.
class FaultInjector
{
public:
    static constexpr int c_maxFaults = 100; ///< at once

    explicit FaultInjector(const RandomSource& random);

    /// False: there are c_maxFaults already.
    bool add(const Fault& fault);

    /// Takes away those that Fault::isCalled() so, and returns how many.
    int remove(const QString& name);
    void clear();

    /// One text each, as it was written, with how often it has struck.
    QStringList describe() const;

    /// Counts one frame, and says what happens to it.
    Disturbance frameTakenUp();

    /// What becomes of a line, given without its end. Several faults do their work in the order in which they were set.
    DisturbedLine disturb(const QByteArray& line);

    /// Whether this report of a wrench is followed by one of its twin.
    bool hasTwin(const QByteArray& serial);

private:
    struct Entry
    {
        Fault fault;
        RandomSource dice;
        RandomSource invention;
        int frames = 0; ///< taken up since it was added
        qint64 strikes = 0;
    };

    static bool strikes(Entry& entry);

    RandomSource m_random;
    std::vector<Entry> m_entries;
    QHash<QString, int> m_timesSet; ///< by the fault's text
};
