#pragma once

#include <QString>

class SessionWatch;
class SimulatedWorkplace;
struct SessionOrder;

// What must hold of a session that has ended, whatever happened to it. Each returns what does not; empty: all does.
// None of them asks the parts that are tested: they look at what went over the line.

/// The end is a good one, or a failure whose name and cause are what really happened.
QString wrongEnd(const SimulatedWorkplace& workplace, const SessionWatch& watch, const SessionOrder& order);

/// The results told are the result lines that arrived whole while the session listened: each once, in their order.
QString wrongResults(const SimulatedWorkplace& workplace, const SessionWatch& watch, const SessionOrder& order);

/// The dongle was told to hang up, the port is closed, nothing runs or waits any more. Lets some time pass, in which
/// nothing may happen.
QString disorder(SimulatedWorkplace& workplace, const SessionWatch& watch);
