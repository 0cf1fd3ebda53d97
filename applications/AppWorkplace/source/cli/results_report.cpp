#include "results_report.h"

#include <QCoreApplication>

#include "../history/history_format.h"
#include "../history/history_note.h"
#include "text_table.h"

namespace {

class TextResultsReport : public ResultsReport
{
public:
    explicit TextResultsReport(Console& console) : m_console(console) {}

    void entry(const HistoryRecord& record) override
    {
        if (!m_hasTitles) {
            m_hasTitles = true;
            m_console.line(m_console.strong(m_table.titleLine()));
        }
        const QString time = history_format::arrival(record).left(c_upToMs).replace(QLatin1Char('T'), QLatin1Char(' '));
        if (record.kind != HistoryRecord::Kind::Result) {
            m_console.line(m_console.alarming(m_table.rowLine({time, record.serialId}) + QStringLiteral("  ") +
                                              Console::visible(historyNoteText(record))));
            return;
        }
        QStringList cells{time, record.serialId};
        for (const HistoryRecord::Entry entry : c_shown) {
            cells.append(record.entries.at(entry).toString());
        }
        cells.append(record.isGood ? QCoreApplication::translate("ResultsReport", "good")
                                   : QCoreApplication::translate("ResultsReport", "NOT GOOD"));
        const QString line = m_table.rowLine(cells);
        m_console.line(record.isGood ? line : m_console.alarming(line));
    }

    void totals(const HistoryTotals& totals, const QString& exportFile) override
    {
        QString line =
            QCoreApplication::translate("ResultsReport", "Results: %1, good: %2, not good: %3, gaps: %4, repeated: %5")
                .arg(totals.good + totals.notGood)
                .arg(totals.good)
                .arg(totals.notGood)
                .arg(totals.gaps)
                .arg(totals.repeats);
        if (!exportFile.isEmpty()) {
            line = QCoreApplication::translate("ResultsReport", "%1; written to %2")
                       .arg(line, Console::visible(exportFile));
        }
        m_console.line(m_console.strong(line));
    }

private:
    static constexpr int c_upToMs = 23;
    static constexpr HistoryRecord::Entry c_shown[] = {HistoryRecord::ConvertedTorque, HistoryRecord::TorqueStatus,
                                                       HistoryRecord::Direction,       HistoryRecord::SnugTorqueAngle,
                                                       HistoryRecord::AngleStatus,     HistoryRecord::ReadingNumber,
                                                       HistoryRecord::ReadingStatus,   HistoryRecord::ProgId};

    Console& m_console;
    const TextTable m_table{{{QCoreApplication::translate("ResultsReport", "time"), false, c_upToMs},
                             {QCoreApplication::translate("ResultsReport", "wrench"), false, 8},
                             {QCoreApplication::translate("ResultsReport", "torque"), true, 8},
                             {QCoreApplication::translate("ResultsReport", "status"), true},
                             {QCoreApplication::translate("ResultsReport", "direction"), true},
                             {QCoreApplication::translate("ResultsReport", "angle"), true},
                             {QCoreApplication::translate("ResultsReport", "status"), true},
                             {QCoreApplication::translate("ResultsReport", "reading"), true},
                             {QCoreApplication::translate("ResultsReport", "status"), true},
                             {QCoreApplication::translate("ResultsReport", "program"), true},
                             {QString()}}};
    bool m_hasTitles = false;
};

class JsonResultsReport : public ResultsReport
{
public:
    explicit JsonResultsReport(Console& console) : m_console(console) {}

    void entry(const HistoryRecord& record) override
    {
        m_console.object({{QStringLiteral("event"), QStringLiteral("stored")},
                          {QStringLiteral("entry"), history_format::toJson(record)}});
    }

    void totals(const HistoryTotals& totals, const QString& exportFile) override
    {
        QJsonObject object{{QStringLiteral("event"), QStringLiteral("totals")},
                           {QStringLiteral("results"), totals.good + totals.notGood},
                           {QStringLiteral("good"), totals.good},
                           {QStringLiteral("notGood"), totals.notGood},
                           {QStringLiteral("gaps"), totals.gaps},
                           {QStringLiteral("repeats"), totals.repeats}};
        if (!exportFile.isEmpty()) {
            object.insert(QStringLiteral("file"), exportFile);
        }
        m_console.object(object);
    }

private:
    Console& m_console;
};

} // namespace

std::unique_ptr<ResultsReport> ResultsReport::make(Console& console)
{
    if (console.isJson()) {
        return std::make_unique<JsonResultsReport>(console);
    }
    return std::make_unique<TextResultsReport>(console);
}
