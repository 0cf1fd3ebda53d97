#pragma once

#include <QString>

#include <optional>

/// A moment as a person writes it, in microseconds since 1970-01-01 UTC; none when it is written otherwise. Accepted is
/// ISO 8601: a date, or a date and a time in minutes, seconds or parts of them, with "T" or a blank between them; local
/// time unless "Z" or an offset follows. isEnd: a date alone means the end of that day, else its beginning.
std::optional<qint64> momentOf(const QString& text, bool isEnd);
