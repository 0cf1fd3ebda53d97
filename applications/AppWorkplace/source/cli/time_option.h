#pragma once

#include <QCommandLineParser>
#include <QString>

#include <optional>

#include "../services/problem.h"

/// The value of an option that takes a moment, see momentOf(); none when the option is not given. Problem::what says
/// what is wrong.
std::optional<qint64> timeOption(const QCommandLineParser& options, const QString& name, bool isEnd, Problem* problem);
