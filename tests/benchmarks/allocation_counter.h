#pragma once

#include <cstdint>

/// How often this thread has asked for memory since it began.
std::int64_t allocations();
