#pragma once

#include "doctor_stage.h"

/// The port exists, this user may open it, nobody else holds it, and it has what is configured: the driver opens it.
/// What the driver says against it ends the stage from outside.
class PortStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit PortStage(DoctorBench& bench);
    ~PortStage() override;

    void start() override;
    void stop() override;

private:
    void opened();

    Clock::TimerId m_timer = 0;
};
