#pragma once

#include <QCommandLineParser>
#include <QString>

#include <optional>

#include "../services/problem.h"

/// The value of an option that takes a moment, in microseconds since 1970-01-01 UTC; none when the option is not given.
/// Accepted is ISO 8601: a date, or a date and a time in minutes, seconds or parts of them, with "T" or a blank between
/// them; local time unless "Z" or an offset follows. isEnd: a date alone means the end of that day, else its beginning.
/// Problem::what says what is wrong.
std::optional<qint64> timeOption(const QCommandLineParser& options, const QString& name, bool isEnd, Problem* problem);
