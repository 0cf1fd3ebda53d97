#pragma once

#include <memory>

#include "doctor_stage.h"

/// The device plugin can read the programs of the wrench.
class ProgramsStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit ProgramsStage(DoctorBench& bench);

    void start() override;
    void stop() override;

private:
    void judge(const DOrder& run);
    void failUnread(int programsRead);

    std::unique_ptr<DOrder> m_run;
};
