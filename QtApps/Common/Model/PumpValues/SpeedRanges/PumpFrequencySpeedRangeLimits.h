#pragma once

#include "PumpSpeedRangeLimitsBase.h"

namespace communication {

/// Limits within which the frequency input's speed range profile may be set.
class PumpFrequencySpeedRangeLimits final : public PumpSpeedRangeLimitsBase {
    Q_OBJECT

public:
    explicit PumpFrequencySpeedRangeLimits(ProtocolObjectContainer& container)
        : PumpSpeedRangeLimitsBase(container,
                                   objects::SpeedCommanderObject::FrequencySpeedRangeLimits,
                                   "FrequencySpeedRangeLimits") {
        forwardResponse(&objects::SpeedCommanderObject::getFrequencySpeedRangeLimitsResponse,
                        &PumpFrequencySpeedRangeLimits::getSpeedRangeLimitsResponse);
    }
};

} // namespace communication
