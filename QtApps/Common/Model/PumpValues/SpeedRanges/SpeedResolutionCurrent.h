#pragma once

#include "SpeedResolutionBase.h"

namespace speedResolution {

/// The current input is measured in 10500 steps over 16000 µA.
class SpeedResolutionCurrent : public SpeedResolutionBase {
    Q_OBJECT

public:
    explicit SpeedResolutionCurrent(communication::PumpSpeedRangeBase* currentSpeedRange,
                                    QObject* parent = nullptr)
        : SpeedResolutionBase(16000, 10500, currentSpeedRange, parent) {}
};

} // namespace speedResolution
