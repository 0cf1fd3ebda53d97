#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// One entry of a line's trace, as the driver writes it: "0.004218 < RESP 2210\r\n" with the control characters as
/// codes.
struct TraceEntry
{
    enum class Direction { Sent, Arrived, Remark };

    qint64 momentUs = 0; ///< since the trace began
    Direction direction = Direction::Remark;
    QByteArray text; ///< with codes for what cannot be seen; ASCII

    /// Nothing when the line is none.
    static std::optional<TraceEntry> fromLine(const QByteArray& line);
    /// The line again, without its line end.
    QByteArray line() const;
    /// The moment in seconds, with all its decimals.
    QByteArray seconds() const;
    /// The text for people: bytes stay codes, a remark is one to be read.
    QString shownText() const;
};
