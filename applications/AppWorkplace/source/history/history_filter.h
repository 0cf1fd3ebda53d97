#pragma once

#include <QMetaType>
#include <QString>

#include <optional>

/// Which entries are wanted. Gaps and repeats belong to a wrench, not to a program or a verdict: they are among the
/// entries unless one of those is asked for.
struct HistoryFilter
{
    std::optional<qint64> sinceUs; ///< arrived then or later
    std::optional<qint64> untilUs; ///< arrived before then
    QString serialId;              ///< empty: any wrench
    std::optional<int> program;
    std::optional<bool> isGood;

    bool hasNotes() const { return !program && !isGood; }
};

/// Where an entry stands: by the time of arrival, and of the same time by the order of storing.
struct HistoryKey
{
    qint64 arrivedUs = 0;
    qint64 id = 0;
};

/// How many there are of each kind. Gaps and repeats are those of the wrench and the time, whatever the other filters.
struct HistoryTotals
{
    qint64 good = 0;
    qint64 notGood = 0;
    qint64 gaps = 0;
    qint64 repeats = 0;

    qint64 results() const { return good + notGood; }
    /// How many entries a list with that filter has, when these are its totals.
    qint64 listed(const HistoryFilter& filter) const { return results() + (filter.hasNotes() ? gaps + repeats : 0); }
    void add(const HistoryTotals& more)
    {
        good += more.good;
        notGood += more.notGood;
        gaps += more.gaps;
        repeats += more.repeats;
    }
};

Q_DECLARE_METATYPE(HistoryTotals)
