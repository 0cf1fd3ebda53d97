#pragma once

#include <QByteArray>
#include <QString>

#include "problem.h"
#include "settings.h"

#include <optional>

/// The workplace's configuration: one JSON object, described by docs/configuration.schema.json.
/// Reads the file into the settings. What is wrong with it is told with file and line; the settings are unchanged then.
std::optional<Problem> readConfigurationFile(const QString& file, Settings& settings);

/// The same for a text; file names it in the problem.
std::optional<Problem> readConfiguration(const QByteArray& text, const QString& file, Settings& settings);
