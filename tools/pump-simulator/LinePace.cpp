#include "LinePace.h"

namespace simulator {

LinePace::LinePace() {
    mClock.start();
}

void LinePace::startAfterIdle() {
    mAllowance = kMaxBurstBytes;
    mClock.restart();
}

qint64 LinePace::take(qint64 wanted) {
    const double elapsedSeconds = static_cast<double>(mClock.nsecsElapsed()) / 1e9;
    mClock.restart();
    mAllowance += elapsedSeconds * kLineBytesPerSecond;
    const qint64 granted = qMin(wanted, static_cast<qint64>(mAllowance));
    if (granted > 0) {
        mAllowance -= static_cast<double>(granted);
    }
    return granted;
}

} // namespace simulator
