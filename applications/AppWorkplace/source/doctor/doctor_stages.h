#pragma once

#include "doctor.h"

class Workplace;

/// The stages of an examination, in their order.
namespace doctor_stages {

/// From the plugins on. bench and workplace outlive the stages.
Doctor::Stages all(DoctorBench& bench, Workplace& workplace);
/// From the port on, where the plugins are there already.
Doctor::Stages fromThePort(DoctorBench& bench);

} // namespace doctor_stages
