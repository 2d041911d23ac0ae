#pragma once

#include <ctime>

namespace bench {

/// CPU time the calling thread has used, in seconds (Linux, POSIX clocks).
inline double threadCpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

} // namespace bench
