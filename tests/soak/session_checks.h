#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

class SessionWatch;
class SimulatedWorkplace;
struct LineRecord;
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

/// The same of any use of the line that has ended, but for the last frame.
QString leftovers(SimulatedWorkplace& workplace);

/// The seven fields of each result line that arrived whole in the entries from one to before the other.
QList<QStringList> resultsOnTheLine(const LineRecord& record, int from, int to);
/// The same fields of a result that was told.
QStringList fieldsOf(const QVariantMap& eventData);
