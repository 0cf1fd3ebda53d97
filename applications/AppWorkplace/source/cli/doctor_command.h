#pragma once

#include <memory>

#include "../doctor/doctor.h"
#include "../services/workplace.h"
#include "command_line.h"
#include "doctor_report.h"

/// `doctor`: looks at the workplace step by step, and says how to mend what fails.
class DoctorCommand : public CliCommand
{
    Q_OBJECT

public:
    DoctorCommand(const CliContext& context, const DoctorOrder& order);

    static CliEntry entry();

    void start() override;
    void interrupt() override;

private:
    Workplace m_workplace;
    DoctorBench m_bench;
    std::unique_ptr<DoctorReport> m_report;
    Doctor m_doctor;
};
