#pragma once

#include "PumpSpeedRangeLimitsBase.h"

namespace communication {

/// Limits within which the current input's speed range profile may be set.
class PumpCurrentSpeedRangeLimits final : public PumpSpeedRangeLimitsBase {
    Q_OBJECT

public:
    explicit PumpCurrentSpeedRangeLimits(ProtocolObjectContainer& container)
        : PumpSpeedRangeLimitsBase(container,
                                   objects::SpeedCommanderObject::CurrentSpeedRangeLimits,
                                   "CurrentSpeedRangeLimits") {
        forwardResponse(&objects::SpeedCommanderObject::getCurrentSpeedRangeLimitsResponse,
                        &PumpCurrentSpeedRangeLimits::getSpeedRangeLimitsResponse);
    }
};

} // namespace communication
