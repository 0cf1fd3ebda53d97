#pragma once

#include <QString>

struct HistoryRecord;

/// What a person is told of a gap or a repeat.
QString historyNoteText(const HistoryRecord& record);
