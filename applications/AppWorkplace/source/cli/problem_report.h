#pragma once

#include "../services/problem.h"

class Console;

/// Tells of the problem, for people and, where asked, for programs.
void tellProblem(Console& console, const Problem& problem);
