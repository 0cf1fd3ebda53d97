#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include "problem.h"
#include "settings.h"

#include <optional>

/// The workplace's configuration: one JSON object, described by docs/configuration.schema.json. JSON has no comments;
/// a key that begins with "//" and has a text as its value is one, here and inside the objects.
namespace configuration {

/// What a command's setting takes. A list of texts stands for an option that is given more than once.
enum class Value { Text, Switch, WholeNumber, Number, TextList };
/// The settings of commands: by the name of the command and the key.
using Sections = QMap<QString, QMap<QString, Value>>;

/// No configuration needs more bytes; a longer file, or a device that never ends, is refused after as many.
constexpr int c_maxFileBytes = 1024 * 1024;

/// Where a user's configuration is when none is named.
QString defaultFile();

/// Reads the file into the settings. What is wrong with it is told with file and line; the settings are unchanged then.
std::optional<Problem> readFile(const QString& file, const Sections& sections, Settings& settings);

/// The same for a text; file names it in the problem.
std::optional<Problem> read(const QByteArray& text, const QString& file, const Sections& sections, Settings& settings);

/// A key of the configuration cannot be used. cause and mend: as in a problem.
Problem refusal(const QString& file, int line, const QString& cause, const QString& mend);

} // namespace configuration
