#pragma once

#include <QElapsedTimer>
#include <QtGlobal>

namespace simulator {

/// How many bytes one direction of a 115200 8N1 line can carry at a moment: a UART's FIFO
/// lets a few bytes go at once after an idle spell, after that the line rate rules.
class LinePace {
public:
    /// 115200 baud, 8N1: ten bit times per byte.
    static constexpr double kLineBytesPerSecond = 115200.0 / 10.0;
    static constexpr double kMaxBurstBytes = 16.0;

    LinePace();

    /// The line was idle until now.
    void startAfterIdle();
    /// Of `wanted` bytes, how many may go now; they are taken from the allowance.
    qint64 take(qint64 wanted);
    /// Returns bytes taken but not sent after all.
    void giveBack(qint64 unused) { mAllowance += static_cast<double>(unused); }

private:
    QElapsedTimer mClock;
    double mAllowance = 0.0;
};

} // namespace simulator
