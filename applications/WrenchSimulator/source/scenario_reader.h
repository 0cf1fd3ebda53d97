#pragma once

#include "scenario.h"

#include <optional>

/// Reads a scenario: one JSON object, described by docs/scenario.schema.json. Otherwise nothing, and the error names
/// the file, the line, what is wrong there and what would be right.
std::optional<Scenario> readScenarioFile(const QString& file, QString* error);

/// The same for a text; file names it in the error.
std::optional<Scenario> readScenario(const QByteArray& text, const QString& file, QString* error);
