#pragma once

#include "PumpSpeedRangeBase.h"

namespace communication {

/// Speed range profile of the frequency input.
class PumpFrequencySpeedRange final : public PumpSpeedRangeBase {
    Q_OBJECT

public:
    explicit PumpFrequencySpeedRange(ProtocolObjectContainer& container)
        : PumpSpeedRangeBase(container, objects::SpeedCommanderObject::FrequencySpeedRange,
                             "FrequencySpeedRange") {
        forwardResponse(&objects::SpeedCommanderObject::getFrequencySpeedRangeResponse,
                        &PumpFrequencySpeedRange::getSpeedRangeResponse);
    }
};

} // namespace communication
