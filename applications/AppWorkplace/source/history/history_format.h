#pragma once

#include <QByteArray>
#include <QJsonObject>

#include "history_record.h"

/// How entries leave the history. Texts are the ones that were received, none is rounded, trimmed or translated.
namespace history_format {

/// Local time of its arrival: ISO 8601 with microseconds and the offset that was in force.
QString arrival(const HistoryRecord& record);

/// "result", "gap", "repeat"
QString nameOf(HistoryRecord::Kind kind);

/// The members that the kind has; docs/output.schema.json describes them.
QJsonObject toJson(const HistoryRecord& record);

/// Lines of CSV as in RFC 4180, with their line ends. A text without characters is "", an absent entry is nothing.
QByteArray csvTitles();
QByteArray toCsv(const HistoryRecord& record);

} // namespace history_format
