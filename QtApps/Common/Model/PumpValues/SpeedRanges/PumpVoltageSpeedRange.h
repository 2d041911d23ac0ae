#pragma once

#include "PumpSpeedRangeBase.h"

namespace communication {

/// Speed range profile of the voltage input.
class PumpVoltageSpeedRange final : public PumpSpeedRangeBase {
    Q_OBJECT

public:
    explicit PumpVoltageSpeedRange(ProtocolObjectContainer& container)
        : PumpSpeedRangeBase(container, objects::SpeedCommanderObject::VoltageSpeedRange,
                             "VoltageSpeedRange") {
        forwardResponse(&objects::SpeedCommanderObject::getVoltageSpeedRangeResponse,
                        &PumpVoltageSpeedRange::getSpeedRangeResponse);
    }
};

} // namespace communication
