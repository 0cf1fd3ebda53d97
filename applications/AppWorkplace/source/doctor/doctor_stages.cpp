#include "doctor_stages.h"

#include "dongle_stage.h"
#include "line_stage.h"
#include "link_stage.h"
#include "plugins_stage.h"
#include "port_stage.h"
#include "programs_stage.h"
#include "range_stage.h"
#include "results_stage.h"
#include "wrench_stage.h"

Doctor::Stages doctor_stages::all(DoctorBench& bench, Workplace& workplace)
{
    Doctor::Stages stages = fromThePort(bench);
    stages.insert(stages.begin(), std::make_unique<PluginsStage>(bench, workplace));
    return stages;
}

Doctor::Stages doctor_stages::fromThePort(DoctorBench& bench)
{
    Doctor::Stages stages;
    stages.push_back(std::make_unique<PortStage>(bench));
    stages.push_back(std::make_unique<LineStage>(bench));
    stages.push_back(std::make_unique<DongleStage>(bench));
    stages.push_back(std::make_unique<RangeStage>(bench));
    stages.push_back(std::make_unique<LinkStage>(bench));
    stages.push_back(std::make_unique<WrenchStage>(bench));
    stages.push_back(std::make_unique<ProgramsStage>(bench));
    stages.push_back(std::make_unique<ResultsStage>(bench));
    return stages;
}
