#pragma once

#include "doctor_report.h"

/// An examination for people: what a stage will send before it does, and what it has come to.
class DoctorTextReport : public DoctorReport
{
public:
    explicit DoctorTextReport(Console& console) : m_console(console) {}

    void stageStarted(const DoctorStageText& stage) override;
    void notice(const QString& stage, const QString& text) override;
    void stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs) override;
    void summary(const DoctorSummary& summary) override;

private:
    void line(const QString& stage, const QString& word, const QString& text, bool isAlarming = false);

    Console& m_console;
};
