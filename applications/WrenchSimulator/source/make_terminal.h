#pragma once

#include "terminal.h"

#include <memory>

struct Options;

/// The terminal that the options ask for, not open yet.
std::unique_ptr<Terminal> makeTerminal(const Options& options);
