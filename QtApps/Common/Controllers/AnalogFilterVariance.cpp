#include "AnalogFilterVariance.h"

#include "Common/Protocol/SystemInterface.h"

#include <cmath>

namespace communication {

AnalogFilterVariance::AnalogFilterVariance(uint32_t samplePeriodMs,
                                           const objects::QSpeedRangeProfile& profile,
                                           const halyard::device::SystemInterface& clock,
                                           QObject* parent)
    : QObject(parent)
    , mProfile(profile)
    , mClock(clock)
    , mInput(kWindowMs, samplePeriodMs)
    , mOutput(kWindowMs, samplePeriodMs)
    , mTimer(this) {
    mTimer.setInterval(kUpdateIntervalMs);
    connect(&mTimer, &QTimer::timeout, this, &AnalogFilterVariance::update);
}

// Time stamps are the clock's milliseconds modulo 2^32; ages are differences in that ring.
uint32_t AnalogFilterVariance::now() const {
    return static_cast<uint32_t>(mClock.ElapsedMilliseconds() & 0xFFFFFFFFU);
}

void AnalogFilterVariance::addSample(const objects::AnalogFilterData& data) {
    const uint32_t time = now();
    mInput.push(data.inputVariance, time);
    mOutput.push(data.outputVariance, time);
}

void AnalogFilterVariance::update() {
    const uint32_t time = now();
    mInputVarianceDrpm = toSpeed(mInput.peak(time), mProfile);
    mOutputVarianceDrpm = toSpeed(mOutput.peak(time), mProfile);
    emit varianceUpdate();
}

float AnalogFilterVariance::toSpeed(float variance, const objects::QSpeedRangeProfile& profile) {
    if (profile == objects::QSpeedRangeProfile{}) {
        return 0.0F;
    }
    const float speedSpan =
        static_cast<float>(profile.MaximumSpeedDrpm) - static_cast<float>(profile.MinimumSpeedDrpm);
    const float inputSpan =
        static_cast<float>(profile.MaximumInput) - static_cast<float>(profile.MinimumInput);
    const float slope = std::fabs(speedSpan / inputSpan);
    return slope * std::sqrt(variance);
}

} // namespace communication
