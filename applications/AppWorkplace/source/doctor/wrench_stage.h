#pragma once

#include "doctor_stage.h"

/// The wrench acknowledges a frame, and tells its lock.
class WrenchStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit WrenchStage(DoctorBench& bench);

    void start() override;

private:
    void ask();
    void judge(const QString& answer);
    void failUnanswered();

    int m_asked = 0;
};
