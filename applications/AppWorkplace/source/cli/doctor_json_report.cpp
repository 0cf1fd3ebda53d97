#include "doctor_json_report.h"

namespace {

const QString c_event = QStringLiteral("event");
const QString c_stageEvent = QStringLiteral("stage");
const QString c_stage = QStringLiteral("stage");
const QString c_state = QStringLiteral("state");
const QString c_text = QStringLiteral("text");

QString stateOf(DoctorFinding::Outcome outcome)
{
    switch (outcome) {
    case DoctorFinding::Outcome::Passed:
        return QStringLiteral("passed");
    case DoctorFinding::Outcome::Failed:
        return QStringLiteral("failed");
    case DoctorFinding::Outcome::Skipped:
        return QStringLiteral("skipped");
    }
    return {};
}

} // namespace

void DoctorJsonReport::stageStarted(const DoctorStageText& stage)
{
    m_console.object({{c_event, c_stageEvent},
                      {c_stage, stage.name},
                      {c_state, QStringLiteral("started")},
                      {QStringLiteral("checks"), stage.checks},
                      {QStringLiteral("sends"), stage.sends}});
}

void DoctorJsonReport::notice(const QString& stage, const QString& text)
{
    m_console.object({{c_event, c_stageEvent}, {c_stage, stage}, {c_state, QStringLiteral("notice")}, {c_text, text}});
}

void DoctorJsonReport::stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs)
{
    m_console.object({{c_event, c_stageEvent},
                      {c_stage, stage.name},
                      {c_state, stateOf(finding.outcome)},
                      {c_text, finding.text},
                      {QStringLiteral("elapsedMs"), elapsedMs}});
}

void DoctorJsonReport::summary(const DoctorSummary& summary)
{
    m_console.object({{c_event, QStringLiteral("diagnosis")},
                      {QStringLiteral("passed"), summary.passed},
                      {QStringLiteral("failed"), summary.failed},
                      {QStringLiteral("skipped"), summary.skipped},
                      {QStringLiteral("interrupted"), summary.isInterrupted},
                      {QStringLiteral("exitStatus"), summary.exitStatus}});
}
