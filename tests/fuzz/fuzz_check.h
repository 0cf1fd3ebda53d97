#pragma once

#include <cstdio>
#include <cstdlib>

/// An invariant. When it does not hold the program is aborted, as libFuzzer and the tests want it.
#define FUZZ_CHECK(condition)                                                                                          \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);                        \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)
