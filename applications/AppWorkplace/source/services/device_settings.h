#pragma once

#include <QList>
#include <QStringList>

#include <optional>

#include "problem.h"
#include "settings.h"

/// The settings of several devices in one process, each named as PORT or PORT,NUMBER: the serial number is what stands
/// behind the last comma. Whatever else is set holds for all; a file for the trace is one for each, FILE for the first
/// and FILE.2, FILE.3 … for the others. Simulated lines without a serial number have the wrenches 2210, 2211 …
///
/// Without names there is one device, that of the settings. A problem: two devices share a port, or a name is empty.
std::optional<Problem> readDevices(const QStringList& names, const Settings& settings, QList<Settings>* devices);
