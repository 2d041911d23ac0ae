#pragma once

#include "tests/support/SimulatorLink.h"

#include <QEventLoop>
#include <QTimer>

#include <cstdio>
#include <ctime>

namespace bench {

/// CPU time the calling thread has used, in seconds (Linux, POSIX clocks).
inline double threadCpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// Runs this thread's event loop for `milliseconds`.
inline void runFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The CPU time of the link thread and of this (the user-interface) thread over `seconds` of
/// running, each as a percentage of one core.
struct ThreadShares {
    double link = 0.0;
    double ui = 0.0;

    static ThreadShares measure(testsupport::SimulatorLink& link, int seconds) {
        double linkStart = 0.0;
        link.runOnCommsThread([&linkStart] { linkStart = threadCpuSeconds(); });
        const double uiStart = threadCpuSeconds();
        runFor(seconds * 1000);
        double linkEnd = 0.0;
        link.runOnCommsThread([&linkEnd] { linkEnd = threadCpuSeconds(); });
        const double uiEnd = threadCpuSeconds();
        return {100.0 * (linkEnd - linkStart) / seconds, 100.0 * (uiEnd - uiStart) / seconds};
    }

    void print(double targetPercent) const {
        std::printf("link thread (ProtocolCommsThread): %.2f %% of one core\n", link);
        std::printf("user-interface thread:             %.2f %% of one core\n", ui);
        std::printf("both threads:                      %.2f %% of one core (target below %g %%)\n",
                    link + ui, targetPercent);
    }
};

} // namespace bench
