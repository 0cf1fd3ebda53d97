#pragma once

#include "problem.h"

#include <optional>

struct Settings;

/// Asks the simulator which wrench is the first one of the scenario that the settings name, and notes it there. It
/// reads scenarios and nobody else does. Waits for the answer: only before the event loop runs. A problem, in the
/// simulator's words, when the scenario cannot be used; there is no wrench of its own then.
std::optional<Problem> findSimulatedWrench(Settings& settings);
