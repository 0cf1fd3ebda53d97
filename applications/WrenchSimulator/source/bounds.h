#pragma once

/// What may be asked of the simulator at most, wherever it is asked: command line, console, scenario.
constexpr int c_maxMs = 3600 * 1000;
constexpr double c_maxRatePerSecond = 1000.0;
constexpr int c_maxPrograms = 99;
constexpr int c_maxWrenches = 250;
constexpr int c_minRssiDbm = -120;
constexpr int c_maxRssiDbm = 0;
constexpr int c_maxEvents = 10000;
