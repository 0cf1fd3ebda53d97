#include "doctor_table.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

#include "../doctor/doctor_bench.h"
#include "../doctor/doctor_stages.h"
#include "../services/step_name.h"
#include "../services/workplace.h"

namespace {

constexpr int c_msPerSecond = 1000;
const char* const c_progressNames[] = {"waiting", "running", "passed", "failed", "skipped"}; // as in Progress

DoctorOrder orderFor(const Settings& settings, int waitResultMs)
{
    DoctorOrder order;
    order.port = settings.port;
    order.serialId = settings.wrench();
    order.waitResultMs = waitResultMs;
    return order;
}

} // namespace

/// One examination and what it needs.
struct DoctorTable::Examination
{
    Examination(const Settings& settings, int waitResultMs)
        : workplace(settings), bench(workplace.host(), workplace.clock(), orderFor(settings, waitResultMs))
    {}

    Workplace workplace;
    DoctorBench bench;
    std::unique_ptr<Doctor> doctor;
};

DoctorTable::DoctorTable(SettingsSource settings, QObject* parent)
    : QAbstractListModel(parent), m_settings(std::move(settings))
{
    QCoreApplication::instance()->installEventFilter(this);
}

DoctorTable::~DoctorTable() = default;

void DoctorTable::make(int waitResultMs)
{
    m_examination = std::make_unique<Examination>(m_settings(), waitResultMs);
    Doctor::Stages stages = doctor_stages::all(m_examination->bench, m_examination->workplace);
    beginResetModel();
    m_rows.clear();
    for (const std::unique_ptr<DoctorStage>& stage : stages) {
        Row row;
        row.stage = stage->text();
        m_rows.push_back(row);
    }
    endResetModel();
    m_examination->doctor = std::make_unique<Doctor>(m_examination->bench, std::move(stages));
    m_hasSummary = false;
    m_endText.clear();
    m_problem = {};
    Q_EMIT resultChanged();
}

void DoctorTable::prepare()
{
    if (!m_isRunning) {
        make(0);
        m_examination.reset(); // the stages are known now; what is to be examined may change until it begins
    }
}

void DoctorTable::start(int waitResultSeconds)
{
    if (m_isRunning) {
        return;
    }
    make(waitResultSeconds * c_msPerSecond);
    Doctor* doctor = m_examination->doctor.get();
    connect(&m_examination->workplace, &Workplace::sigFailed, doctor, &Doctor::fail);
    connect(&m_examination->workplace, &Workplace::sigNotice, this,
            [this](const QString& text) { noticed(QString(), text); });
    connect(doctor, &Doctor::sigStageStarted, this, &DoctorTable::stageStarted);
    connect(doctor, &Doctor::sigNotice, this, &DoctorTable::noticed);
    connect(doctor, &Doctor::sigStageEnded, this, &DoctorTable::stageEnded);
    connect(doctor, &Doctor::sigFailed, this, [this](const Problem& problem) { m_problem = problem; });
    connect(doctor, &Doctor::sigFinished, this, &DoctorTable::ended);
    m_isRunning = true;
    m_isEnding = false;
    Q_EMIT runningChanged();
    doctor->start();
}

void DoctorTable::stop()
{
    if (m_isRunning && !m_isEnding) {
        m_isEnding = true;
        Q_EMIT runningChanged();
        m_examination->doctor->interrupt();
    }
}

void DoctorTable::stageStarted(const DoctorStageText& stage)
{
    if (Row* row = rowOf(stage.name)) {
        row->progress = Progress::Running;
        tellChange(*row);
        Q_EMIT runningChanged();
    }
}

void DoctorTable::noticed(const QString& stage, const QString& text)
{
    if (Row* row = rowOf(stage)) {
        row->notes.append(text);
        tellChange(*row);
    } else { // behind the last stage
        m_endText = m_endText.isEmpty() ? text : m_endText + QLatin1Char('\n') + text;
    }
}

void DoctorTable::stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs)
{
    Row* row = rowOf(stage.name);
    if (row == nullptr) {
        return;
    }
    switch (finding.outcome) {
    case DoctorFinding::Outcome::Passed:
        row->progress = Progress::Passed;
        break;
    case DoctorFinding::Outcome::Failed:
        row->progress = Progress::Failed;
        break;
    case DoctorFinding::Outcome::Skipped:
        row->progress = Progress::Skipped;
        break;
    }
    row->finding = finding;
    row->elapsedMs = elapsedMs;
    tellChange(*row);
    m_isEnding = m_isEnding || row == &m_rows.back();
    Q_EMIT runningChanged();
}

void DoctorTable::ended(const DoctorSummary& summary)
{
    m_summary = summary;
    m_hasSummary = true;
    // From a later turn: it is telling us. With it go the port and the simulator.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_examination.reset();
            m_isRunning = false;
            m_isEnding = false;
            Q_EMIT runningChanged();
            Q_EMIT resultChanged();
            Q_EMIT sigEnded();
        },
        Qt::QueuedConnection);
}

QString DoctorTable::runningText() const
{
    if (m_isEnding) {
        return tr("Putting things back as they were found");
    }
    const auto running =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [](const Row& row) { return row.progress == Progress::Running; });
    if (!m_isRunning || running == m_rows.cend()) {
        return m_isRunning ? tr("Examining") : QString();
    }
    return tr("Examining: %1").arg(shownStep(running->stage.name));
}

QString DoctorTable::resultText() const
{
    if (!hasResult()) {
        return {};
    }
    const QString counts = tr("%1 passed, %2 failed, %3 skipped")
                               .arg(QString::number(m_summary.passed), QString::number(m_summary.failed),
                                    QString::number(m_summary.skipped));
    if (m_summary.isInterrupted) {
        return tr("Stopped: %1").arg(counts);
    }
    return isGood() ? tr("Nothing is wrong: %1").arg(counts) : tr("Something is wrong: %1").arg(counts);
}

QString DoctorTable::shownProgress(Progress progress)
{
    switch (progress) {
    case Progress::Waiting:
        return tr("to do");
    case Progress::Running:
        return tr("running");
    case Progress::Passed:
        return tr("ok");
    case Progress::Failed:
        return tr("failed");
    case Progress::Skipped:
        return tr("skipped");
    }
    Q_UNREACHABLE();
}

DoctorTable::Row* DoctorTable::rowOf(const QString& stage)
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&stage](const Row& row) { return row.stage.name == stage; });
    return found == m_rows.end() ? nullptr : &*found;
}

void DoctorTable::tellChange(const Row& row)
{
    const QModelIndex changed = index(int(&row - m_rows.data()));
    Q_EMIT dataChanged(changed, changed);
}

int DoctorTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant DoctorTable::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Row& row = m_rows.at(std::size_t(index.row()));
    switch (role) {
    case Name:
        return shownStep(row.stage.name);
    case Checks:
        return row.stage.checks;
    case Sends:
        return row.stage.sends;
    case Outcome:
        return QString::fromLatin1(c_progressNames[int(row.progress)]);
    case OutcomeText:
        return shownProgress(row.progress);
    case Finding:
        return row.finding.text;
    case Cause:
        return row.finding.problem.cause;
    case Mend:
        return row.finding.problem.mend;
    case Notes:
        return row.notes.join(QLatin1Char('\n'));
    case Seconds:
        return double(row.elapsedMs) / c_msPerSecond;
    default:
        return {};
    }
}

QHash<int, QByteArray> DoctorTable::roleNames() const
{
    return {
        {Name, "name"},       {Checks, "checks"}, {Sends, "sends"}, {Outcome, "outcome"}, {OutcomeText, "outcomeText"},
        {Finding, "finding"}, {Cause, "cause"},   {Mend, "mend"},   {Notes, "notes"},     {Seconds, "seconds"}};
}

bool DoctorTable::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange && watched == QCoreApplication::instance()) {
        if (!m_rows.empty() && !m_isRunning && !m_hasSummary) {
            prepare();
        } else if (!m_rows.empty()) {
            Q_EMIT dataChanged(index(0), index(int(m_rows.size()) - 1));
        }
        Q_EMIT runningChanged();
        Q_EMIT resultChanged();
    }
    return QAbstractListModel::eventFilter(watched, event);
}
