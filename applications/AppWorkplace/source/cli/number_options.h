#pragma once

#include <QCommandLineParser>
#include <QString>

#include "../services/problem.h"

/// The values of options that take numbers, up to a million; 0 when the option is not given. Problem::what says what is
/// wrong.
int wholeNumberOption(const QCommandLineParser& options, const QString& name, int least, Problem* problem);

/// In milliseconds. leastMs: what the user gives in seconds may not be less.
int secondsOption(const QCommandLineParser& options, const QString& name, int leastMs, Problem* problem);
