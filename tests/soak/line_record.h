#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QVector>

/// What went over the line of a simulated workplace, seen at the plug: by nothing that is tested.
struct LineRecord
{
    enum class Kind { Opened, Closed, Pulled, Sent, Arrived };

    struct Entry
    {
        Kind kind;
        qint64 atUs;
        QByteArray bytes; ///< Sent: one frame; Arrived: one chunk
    };

    QVector<Entry> entries;

    int size() const { return entries.size(); }
    /// The frame sent last; empty: none was.
    QByteArray lastSent() const;
    /// Where the last one of the kind stands; -1: there is none.
    int last(Kind kind) const;
    bool has(Kind kind, int from, int to) const;
    /// The lines that arrived whole in the entries from one to before the other: cut at CR LF, without blanks at their
    /// ends.
    QByteArrayList lines(int from, int to) const;
};
