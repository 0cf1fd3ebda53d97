#pragma once

#include <memory>

#include "../history/history_query.h"
#include "console.h"

/// Shows what is stored. One for people, one for programs.
class ResultsReport
{
public:
    virtual ~ResultsReport() = default;

    virtual void entry(const HistoryRecord& record) = 0;
    /// exportFile: where the entries are; empty: they were shown.
    virtual void totals(const HistoryTotals& totals, const QString& exportFile) = 0;

    /// The console outlives the report.
    static std::unique_ptr<ResultsReport> make(Console& console);
};
