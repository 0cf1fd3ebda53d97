#pragma once

#include <QtGlobal>

/// Log lines on standard error: "category: text".
namespace log_lines {

/// From now on. isVerbose: with debug messages, too, each behind the seconds since the first call. WORKPLACE_DEBUG in
/// the environment shows debug messages in any case: the plugins write one for each instance.
void show(bool isVerbose);

/// Since the first call of show().
double secondsSinceStart();

} // namespace log_lines
