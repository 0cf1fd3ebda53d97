#pragma once

#include <QString>

#include "../history/history_record.h"

/// How an entry of the history is shown to people, in the language that is in effect.
namespace history_row {

/// Date and time of its arrival, in the local time of then.
QString arrived(const HistoryRecord& record);
/// An entry of a result; a number as the language writes it, digit by digit; anything else as it was received.
QString number(const HistoryRecord& record, HistoryRecord::Entry entry);
/// Of the torque, from the preset of then; empty: not known.
QString unit(const HistoryRecord& record);
/// Those of torque, angle and reading, as received; a dash for an absent one.
QString status(const HistoryRecord& record);

} // namespace history_row
