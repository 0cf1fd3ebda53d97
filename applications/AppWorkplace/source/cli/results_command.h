#pragma once

#include <QVector>

#include <memory>
#include <optional>

#include "../history/history_query.h"
#include "cli_command.h"
#include "command_line.h"

class ExportRun;
class HistoryStore;
class HistoryWatch;
class ResultsReport;

/// What `results` is asked for.
struct ResultsOrder
{
    HistoryFilter filter;
    int last = 0;       ///< only so many results, the latest; 0: all
    QString exportFile; ///< empty: they are listed
    bool isWatching = false;
};

/// `results`: lists, exports or follows the stored results. It works in turns of the event loop, a page in each, so
/// that it can be interrupted.
class ResultsCommand : public CliCommand
{
    Q_OBJECT

public:
    ResultsCommand(const CliContext& context, const ResultsOrder& order);
    ~ResultsCommand() override;

    static CliEntry entry();

    void start() override;
    void interrupt() override;

private:
    void begin();
    void nextPage();
    void show(const QVector<HistoryRecord>& records);
    void listed();
    void startExport();
    void watch();
    void look();
    bool openHistory();
    void later(void (ResultsCommand::*step)());
    /// True: there is none.
    bool passes(const std::optional<Problem>& problem);
    void end(int exitStatus);

    const ResultsOrder m_order;
    std::unique_ptr<HistoryStore> m_store;
    std::unique_ptr<HistoryQuery> m_query;
    std::unique_ptr<ExportRun> m_export;
    std::unique_ptr<ResultsReport> m_report;
    std::unique_ptr<HistoryWatch> m_watch;
    std::optional<HistoryKey> m_first;  // the listing begins behind it
    std::optional<HistoryKey> m_behind; // what is read next begins behind it
    qint64 m_lastId = 0;                // stored last when the listing began, or seen last
    qint64 m_dataVersion = -1;
    bool m_hasEnded = false;
};
