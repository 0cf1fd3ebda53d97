#include "results_command.h"

#include <QFileInfo>
#include <QMetaObject>

#include "../history/export_run.h"
#include "../history/history_store.h"
#include "../history/history_watch.h"
#include "../services/workplace.h"
#include "number_options.h"
#include "results_report.h"
#include "time_option.h"

namespace {

constexpr int c_page = 500;

Problem usage(const QString& what, const QString& mend = {})
{
    return {Problem::Kind::Usage, QStringLiteral("command line"), what, {}, mend};
}

bool takeStatus(const QString& status, std::optional<bool>* isGood)
{
    if (status == QLatin1String("ok") || status == QLatin1String("nok")) {
        *isGood = status == QLatin1String("ok");
        return true;
    }
    return false;
}

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    const QCommandLineParser& options = context.options;
    const QString status = QStringLiteral("status");
    const QString program = QStringLiteral("program");
    ResultsOrder order;
    if (!context.arguments.isEmpty()) {
        *problem = usage(ResultsCommand::tr("the list of results takes no argument \"%1\"")
                             .arg(Console::visible(context.arguments.first())),
                         QStringLiteral("see app_workplace results --help"));
    } else if (options.isSet(status) && !takeStatus(options.value(status), &order.filter.isGood)) {
        *problem = usage(ResultsCommand::tr("--status takes ok or nok, not \"%1\"").arg(options.value(status)));
    }
    order.filter.serialId = context.settings.serialId;
    order.filter.sinceUs = timeOption(options, QStringLiteral("since"), false, problem);
    order.filter.untilUs = timeOption(options, QStringLiteral("until"), true, problem);
    if (options.isSet(program)) {
        order.filter.program = wholeNumberOption(options, program, 0, problem);
    }
    order.last = wholeNumberOption(options, QStringLiteral("last"), 1, problem);
    order.exportFile = options.value(QStringLiteral("export"));
    order.isWatching = options.isSet(QStringLiteral("watch"));
    if (options.isSet(QStringLiteral("export"))) {
        if (const std::optional<Problem> refusal = ExportRun::refusalOf(order.exportFile)) {
            *problem = usage(refusal->what, refusal->mend);
        } else if (order.isWatching) {
            *problem = usage(ResultsCommand::tr("--export and --watch do not go together"),
                             ResultsCommand::tr("watch with --json, or export when the session is over"));
        }
    }
    if (!problem->what.isEmpty()) {
        return nullptr;
    }
    return std::make_unique<ResultsCommand>(context, order);
}

} // namespace

CliEntry ResultsCommand::entry()
{
    return {QStringLiteral("results"),
            {},
            tr("Lists, exports or follows the stored results."),
            {{QStringLiteral("since"), tr("Only what arrived then or later: 2026-11-21 or 2026-11-21T08:30."),
              QStringLiteral("TIME")},
             {QStringLiteral("until"), tr("Only what arrived before then; a date alone: up to its end."),
              QStringLiteral("TIME")},
             {QStringLiteral("program"), tr("Only results of this program."), QStringLiteral("N")},
             {QStringLiteral("status"), tr("Only good ones, or only the others."), QStringLiteral("ok|nok")},
             {QStringLiteral("last"), tr("Only the last so many results."), QStringLiteral("N")},
             {QStringLiteral("export"), tr("Writes them into a file, .csv or .jsonl."), QStringLiteral("FILE")},
             {QStringLiteral("watch"), tr("Goes on with what a running session stores, until Ctrl-C.")}},
            &make};
}

ResultsCommand::ResultsCommand(const CliContext& context, const ResultsOrder& order)
    : CliCommand(context)
    , m_order(order)
    , m_store(std::make_unique<HistoryStore>(Workplace::dataFolder(context.settings)))
    , m_report(ResultsReport::make(context.console))
{}

ResultsCommand::~ResultsCommand() = default;

void ResultsCommand::start()
{
    const bool isThere = m_store->exists();
    if (!isThere) {
        m_console.message(tr("Nothing is stored yet: there is no %1.").arg(m_store->file()));
    }
    if (!m_order.exportFile.isEmpty()) {
        startExport();
    } else if (isThere) {
        if (openHistory()) {
            begin();
        }
    } else if (m_order.isWatching) {
        watch();
    } else {
        m_report->totals({}, {});
        end(0);
    }
}

void ResultsCommand::interrupt()
{
    if (m_export != nullptr) {
        m_export->stop();
    } else {
        end(0);
    }
}

void ResultsCommand::startExport()
{
    m_export = std::make_unique<ExportRun>(ExportRun::Order{QFileInfo(m_store->file()).absolutePath(), m_order.filter,
                                                            m_order.last, m_order.exportFile, true});
    connect(m_export.get(), &ExportRun::sigFailed, this, [this](const Problem& problem) { passes(problem); });
    connect(m_export.get(), &ExportRun::sigDone, this, [this](const HistoryTotals& totals) {
        m_report->totals(totals, m_order.exportFile);
        end(0);
    });
    connect(m_export.get(), &ExportRun::sigStopped, this, [this] {
        m_console.message(tr("Interrupted: %1 is not written.").arg(m_order.exportFile));
        end(int(Problem::Kind::Device));
    });
    m_export->start();
}

bool ResultsCommand::openHistory()
{
    if (!passes(m_store->openToRead())) {
        return false;
    }
    m_query = std::make_unique<HistoryQuery>(m_store->database(), m_order.filter);
    return true;
}

void ResultsCommand::begin()
{
    if (!passes(m_query->begin()) || !passes(m_query->lastId(&m_lastId)) ||
        (m_order.last > 0 && !passes(m_query->beforeLast(m_order.last, &m_first)))) {
        return;
    }
    m_behind = m_first;
    later(&ResultsCommand::nextPage);
}

void ResultsCommand::nextPage()
{
    QVector<HistoryRecord> records;
    if (!passes(m_query->page(m_behind, c_page, &records))) {
        return;
    }
    show(records);
    if (!m_console.isOpen()) {
        end(0); // who reads has had enough
    } else if (records.size() < c_page) {
        listed();
    } else {
        m_behind = HistoryKey{records.constLast().arrivedUs, records.constLast().id};
        later(&ResultsCommand::nextPage);
    }
}

void ResultsCommand::show(const QVector<HistoryRecord>& records)
{
    for (const HistoryRecord& record : records) {
        if (m_console.isOpen()) {
            m_report->entry(record);
        }
    }
}

void ResultsCommand::listed()
{
    HistoryTotals totals;
    if (!passes(m_query->totals(m_first, &totals))) {
        return;
    }
    m_query->end();
    if (m_order.isWatching) {
        watch();
        return;
    }
    m_report->totals(totals, {});
    end(0);
}

void ResultsCommand::watch()
{
    m_watch = std::make_unique<HistoryWatch>(m_store->file());
    connect(m_watch.get(), &HistoryWatch::sigLook, this, &ResultsCommand::look);
}

void ResultsCommand::look()
{
    if (m_hasEnded || (m_query == nullptr && (!m_store->exists() || !openHistory()))) {
        return;
    }
    const QVariant version = m_store->database().value(QStringLiteral("PRAGMA data_version"));
    if (version.isValid() && version.toLongLong() == m_dataVersion) {
        return; // nobody has stored anything
    }
    QVector<HistoryRecord> records;
    do {
        if (!passes(m_query->storedAfter(m_lastId, c_page, &records))) {
            return;
        }
        show(records);
        m_lastId = records.isEmpty() ? m_lastId : records.constLast().id;
    } while (records.size() == c_page && m_console.isOpen());
    m_dataVersion = version.toLongLong();
    if (!m_console.isOpen()) {
        end(0);
    }
}

void ResultsCommand::later(void (ResultsCommand::*step)())
{
    QMetaObject::invokeMethod(
        this,
        [this, step] {
            if (!m_hasEnded) {
                (this->*step)();
            }
        },
        Qt::QueuedConnection);
}

bool ResultsCommand::passes(const std::optional<Problem>& problem)
{
    if (problem) {
        tell(*problem);
        end(problem->exitStatus());
    }
    return !problem;
}

void ResultsCommand::end(int exitStatus)
{
    if (!m_hasEnded) {
        m_hasEnded = true;
        Q_EMIT sigDone(exitStatus);
    }
}
