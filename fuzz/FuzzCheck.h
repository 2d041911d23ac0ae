#pragma once

#include <cstdio>
#include <cstdlib>

/// An invariant of the code under test: a violation stops the fuzzer with the failed condition,
/// which it then reports as a crash with the input that caused it.
#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "FUZZ_CHECK failed: %s (%s:%d)\n", #condition, __FILE__,          \
                         __LINE__);                                                                \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)
