#pragma once

#include "doctor_report.h"

/// An examination for programs: the events "stage" and "diagnosis".
class DoctorJsonReport : public DoctorReport
{
public:
    explicit DoctorJsonReport(Console& console) : m_console(console) {}

    void stageStarted(const DoctorStageText& stage) override;
    void notice(const QString& stage, const QString& text) override;
    void stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs) override;
    void summary(const DoctorSummary& summary) override;

private:
    Console& m_console;
};
