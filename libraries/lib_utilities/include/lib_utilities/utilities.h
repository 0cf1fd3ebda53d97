#pragma once

#include <QChar>
#include <QString>

#include <lib_utilities/export.h>

/// "1.0" as one 64-bit number: up to four fields of 16 bits, most significant first, missing fields 0.
/// separator: the character between the fields. ok (may be null): whether the text was such a number.
/// Returns 0 when it was not: no field, more than four, an empty field, or a field outside 0 to 65535.
LIB_UTILITIES_EXPORT quint64 versionFromString(const QString& text, bool* ok, QChar separator);

/// The local date and time as text, ISO 8601 with milliseconds: "2026-11-21T07:28:00.125".
LIB_UTILITIES_EXPORT QString getDate();
