#pragma once

#include "scenario.h"

class QCommandLineParser;

/// The scenario that is asked for: the one of the file, else the usual one, and what other options change about it.
/// What is wrong is thrown as an OptionRefusal.
Scenario scenarioOptions(const QCommandLineParser& parser);
