#include "SpeedResolutionBase.h"

#include "PumpSpeedRangeBase.h"

#include <cmath>
#include <limits>

namespace speedResolution {

uint toResolution(double value) {
    if (!std::isfinite(value) || value <= -1.0 ||
        value >= static_cast<double>(std::numeric_limits<uint32_t>::max()) + 1.0) {
        return 0;
    }
    return static_cast<uint>(value);
}

SpeedResolutionBase::SpeedResolutionBase(uint32_t inputSpan, uint32_t stepsOverSpan,
                                         communication::PumpSpeedRangeBase* speedRange,
                                         QObject* parent)
    : QObject(parent)
    , mInputSpan(inputSpan)
    , mStepsOverSpan(stepsOverSpan) {
    if (speedRange != nullptr) {
        connect(speedRange, &communication::PumpSpeedRangeBase::getSpeedRangeResponse, this,
                &SpeedResolutionBase::onSpeedRangeUpdate);
    }
}

void SpeedResolutionBase::onSpeedRangeUpdate(communication::objects::QSpeedRangeProfile profile) {
    // Single precision on purpose: the screens show what the pump's own arithmetic gives.
    const float inputDifference = std::fabs(static_cast<float>(profile.MaximumInput) -
                                            static_cast<float>(profile.MinimumInput));
    const float steps =
        inputDifference / static_cast<float>(mInputSpan) * static_cast<float>(mStepsOverSpan);
    const float speedDifference = std::fabs(static_cast<float>(profile.MaximumSpeedDrpm) -
                                            static_cast<float>(profile.MinimumSpeedDrpm));
    emit speedResolutionUpdate(
        toResolution(static_cast<double>(std::ceil(speedDifference / steps))));
}

} // namespace speedResolution
