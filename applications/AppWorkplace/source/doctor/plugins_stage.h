#pragma once

#include "doctor_stage.h"

class Workplace;

/// The libraries fit, the plugins load, have the commands that are needed, and make their devices.
class PluginsStage : public DoctorStage
{
    Q_OBJECT

public:
    /// The workplace outlives the stage.
    PluginsStage(DoctorBench& bench, Workplace& workplace);

    void start() override;
    void stop() override;

private:
    void failUnloaded(const Problem& problem);
    bool hasCommands();
    void opened();

    Workplace& m_workplace;
};
