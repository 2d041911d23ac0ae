#include "TimeWindow.h"

#include <QtGlobal>

namespace communication {

TimeWindow::TimeWindow(uint32_t windowMs, uint32_t samplePeriodMs)
    : mWindowMs(windowMs)
    , mCapacity(windowMs / qMax<uint32_t>(samplePeriodMs, 1) + 1) {
    Q_ASSERT(samplePeriodMs != 0);
}

void TimeWindow::push(float value, uint32_t timeMs) {
    mSamples.push_back({value, timeMs});
    if (mSamples.size() > mCapacity) {
        mSamples.pop_front();
    }
}

float TimeWindow::peak(uint32_t nowMs) const {
    float peak = 0.0F;
    for (const Sample& sample : mSamples) {
        const uint32_t age = nowMs - sample.timeMs;
        if (age < mWindowMs && sample.value > peak) {
            peak = sample.value;
        }
    }
    return peak;
}

} // namespace communication
