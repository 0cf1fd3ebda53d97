#include "doctor_text_report.h"

#include <QCoreApplication>

#include "../services/step_name.h"

namespace {

constexpr int c_nameWidth = 10;
constexpr int c_wordWidth = 8;

QString translated(const char* text)
{
    return QCoreApplication::translate("DoctorTextReport", text);
}

} // namespace

void DoctorTextReport::stageStarted(const DoctorStageText& stage)
{
    if (!stage.sends.isEmpty()) {
        line(stage.name, translated(QT_TRANSLATE_NOOP("DoctorTextReport", "sends")), stage.sends);
    }
    m_console.progress(QStringLiteral("  %1 %2 …").arg(shownStep(stage.name), -c_nameWidth).arg(stage.checks));
}

void DoctorTextReport::notice(const QString& stage, const QString& text)
{
    line(stage, translated(QT_TRANSLATE_NOOP("DoctorTextReport", "note")), text);
}

void DoctorTextReport::stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs)
{
    Q_UNUSED(elapsedMs)
    m_console.progress({});
    switch (finding.outcome) {
    case DoctorFinding::Outcome::Passed:
        line(stage.name, translated(QT_TRANSLATE_NOOP("DoctorTextReport", "ok")), finding.text);
        break;
    case DoctorFinding::Outcome::Failed:
        line(stage.name, translated(QT_TRANSLATE_NOOP("DoctorTextReport", "FAILED")), finding.text, true);
        break;
    case DoctorFinding::Outcome::Skipped:
        line(stage.name, translated(QT_TRANSLATE_NOOP("DoctorTextReport", "skipped")), finding.text);
        break;
    }
}

void DoctorTextReport::summary(const DoctorSummary& summary)
{
    m_console.progress({});
    const QString counts =
        translated(QT_TRANSLATE_NOOP("DoctorTextReport", "%1 passed, %2 failed, %3 skipped"))
            .arg(QString::number(summary.passed), QString::number(summary.failed), QString::number(summary.skipped));
    m_console.line(m_console.strong(
        summary.isInterrupted
            ? translated(QT_TRANSLATE_NOOP("DoctorTextReport", "Interrupted: %1")).arg(counts)
            : (summary.exitStatus == 0
                   ? translated(QT_TRANSLATE_NOOP("DoctorTextReport", "Nothing is wrong: %1")).arg(counts)
                   : translated(QT_TRANSLATE_NOOP("DoctorTextReport", "Something is wrong: %1")).arg(counts))));
}

void DoctorTextReport::line(const QString& stage, const QString& word, const QString& text, bool isAlarming)
{
    const QString shown = QStringLiteral("  %1 %2 %3")
                              .arg(shownStep(stage), -c_nameWidth)
                              .arg(word, -c_wordWidth)
                              .arg(Console::visible(text));
    m_console.line(isAlarming ? m_console.alarming(shown) : shown);
}
