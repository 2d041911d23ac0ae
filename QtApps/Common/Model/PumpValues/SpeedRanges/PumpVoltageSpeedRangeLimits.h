#pragma once

#include "PumpSpeedRangeLimitsBase.h"

namespace communication {

/// Limits within which the voltage input's speed range profile may be set.
class PumpVoltageSpeedRangeLimits final : public PumpSpeedRangeLimitsBase {
    Q_OBJECT

public:
    explicit PumpVoltageSpeedRangeLimits(ProtocolObjectContainer& container)
        : PumpSpeedRangeLimitsBase(container,
                                   objects::SpeedCommanderObject::VoltageSpeedRangeLimits,
                                   "VoltageSpeedRangeLimits") {
        forwardResponse(&objects::SpeedCommanderObject::getVoltageSpeedRangeLimitsResponse,
                        &PumpVoltageSpeedRangeLimits::getSpeedRangeLimitsResponse);
    }
};

} // namespace communication
