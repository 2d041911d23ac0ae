#pragma once

#include "SpeedResolutionBase.h"

namespace speedResolution {

/// The voltage input is measured in 15256 steps over 10000 mV.
class SpeedResolutionVoltage : public SpeedResolutionBase {
    Q_OBJECT

public:
    explicit SpeedResolutionVoltage(communication::PumpSpeedRangeBase* voltageSpeedRange,
                                    QObject* parent = nullptr)
        : SpeedResolutionBase(10000, 15256, voltageSpeedRange, parent) {}
};

} // namespace speedResolution
