#include "SpeedResolutionFrequency.h"

#include "PumpSpeedRangeBase.h"
#include "SpeedResolutionBase.h"

#include <cmath>

namespace speedResolution {

namespace {
constexpr double kTimerClockHz = 90'000'000.0;
constexpr uint32_t kMinimumInputHz = 2;
} // namespace

SpeedResolutionFrequency::SpeedResolutionFrequency(
    communication::PumpSpeedRangeBase* frequencySpeedRange, QObject* parent)
    : QObject(parent) {
    if (frequencySpeedRange != nullptr) {
        connect(frequencySpeedRange, &communication::PumpSpeedRangeBase::getSpeedRangeResponse,
                this, &SpeedResolutionFrequency::onSpeedRangeUpdate);
    }
}

void SpeedResolutionFrequency::onSpeedRangeUpdate(
    communication::objects::QSpeedRangeProfile profile) {
    if (profile.MinimumInput < kMinimumInputHz || profile.MaximumInput < kMinimumInputHz) {
        return;
    }
    const double ticks = (1.0 / static_cast<double>(profile.MinimumInput) -
                          1.0 / static_cast<double>(profile.MaximumInput)) /
                             (1.0 / kTimerClockHz) -
                         2.0;
    const double speedDifference = static_cast<double>(profile.MaximumSpeedDrpm) -
                                   static_cast<double>(profile.MinimumSpeedDrpm);
    emit speedResolutionUpdate(toResolution(std::ceil(std::fabs(speedDifference / ticks))));
}

} // namespace speedResolution
