#include "export_run.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMetaObject>

#include "history_export.h"
#include "history_store.h"

namespace {

constexpr int c_page = 500;
const QString c_replacing = QStringLiteral("replace");

} // namespace

ExportRun::ExportRun(const Order& order, QObject* parent)
    : QObject(parent), m_order(order), m_store(std::make_unique<HistoryStore>(order.folder))
{
    qRegisterMetaType<Problem>();
    qRegisterMetaType<HistoryTotals>();
}

ExportRun::~ExportRun() = default;

std::optional<Problem> ExportRun::refusalOf(const QString& file)
{
    if (HistoryExport::formatOf(file)) {
        return std::nullopt;
    }
    return Problem{
        Problem::Kind::Usage,
        QStringLiteral("export"),
        QCoreApplication::translate("ResultsCommand", "the file \"%1\" does not say how to write it").arg(file),
        {},
        QCoreApplication::translate("ResultsCommand", "end its name with .csv or .jsonl")};
}

bool ExportRun::isAboutReplacing(const Problem& problem)
{
    return problem.step == c_replacing;
}

void ExportRun::start()
{
    if (passes(refusalOf(m_order.file)) && passes(begin())) {
        later();
    }
}

void ExportRun::stop()
{
    if (!m_hasEnded) {
        close();
        Q_EMIT sigStopped();
    }
}

std::optional<Problem> ExportRun::begin()
{
    if (!m_store->exists()) {
        return Problem{Problem::Kind::SetUp,
                       QStringLiteral("export"),
                       QCoreApplication::translate("ResultsCommand", "there is nothing to export"),
                       {},
                       {}};
    }
    if (std::optional<Problem> problem = refusalToReplace()) {
        return problem;
    }
    if (std::optional<Problem> problem = m_store->openToRead()) {
        return problem;
    }
    m_query = std::make_unique<HistoryQuery>(m_store->database(), m_order.filter);
    std::optional<Problem> problem = m_query->begin();
    if (!problem && m_order.last > 0) {
        problem = m_query->beforeLast(m_order.last, &m_behind);
    }
    if (!problem) {
        problem = m_query->totals(m_behind, &m_totals);
    }
    if (problem) {
        return problem;
    }
    m_export = std::make_unique<HistoryExport>(m_order.file, *HistoryExport::formatOf(m_order.file));
    return m_export->begin();
}

std::optional<Problem> ExportRun::refusalToReplace() const
{
    if (m_order.mayReplace || !QFileInfo::exists(m_order.file)) {
        return std::nullopt;
    }
    return Problem{Problem::Kind::Usage,
                   c_replacing,
                   QCoreApplication::translate("History", "the file %1 is there already").arg(m_order.file),
                   {},
                   QCoreApplication::translate("History", "replace it, or name another one")};
}

void ExportRun::nextPage()
{
    QVector<HistoryRecord> records;
    if (!passes(m_query->page(m_behind, c_page, &records)) || !passes(m_export->write(records))) {
        return;
    }
    m_written += records.size();
    if (records.size() == c_page) {
        m_behind = HistoryKey{records.constLast().arrivedUs, records.constLast().id};
        Q_EMIT sigProgress(m_written, m_totals.listed(m_order.filter));
        later();
        return;
    }
    // Somebody else may have made one meanwhile.
    if (passes(refusalToReplace()) && passes(m_export->commit())) {
        close();
        Q_EMIT sigDone(m_totals);
    }
}

void ExportRun::later()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!m_hasEnded) {
                nextPage();
            }
        },
        Qt::QueuedConnection);
}

bool ExportRun::passes(const std::optional<Problem>& problem)
{
    if (problem) {
        close();
        Q_EMIT sigFailed(*problem);
    }
    return !problem;
}

void ExportRun::close()
{
    m_hasEnded = true;
    m_export.reset();
    if (m_query != nullptr) {
        m_query->end();
    }
    m_query.reset();
}
