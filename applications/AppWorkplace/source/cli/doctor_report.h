#pragma once

#include <memory>

#include "../doctor/doctor.h"
#include "console.h"

/// Shows an examination as it goes. One for people, one for programs. The problems themselves are told beside it.
class DoctorReport
{
public:
    virtual ~DoctorReport() = default;

    virtual void stageStarted(const DoctorStageText& stage) = 0;
    virtual void notice(const QString& stage, const QString& text) = 0;
    virtual void stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs) = 0;
    virtual void summary(const DoctorSummary& summary) = 0;

    /// The console outlives the report.
    static std::unique_ptr<DoctorReport> make(Console& console);
};
