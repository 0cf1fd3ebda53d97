#pragma once

#include "doctor_stage.h"

/// Who answers on the line is a dongle. It leaves the dongle searching.
class DongleStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit DongleStage(DoctorBench& bench);

    void start() override;

private:
    void judge();
};
