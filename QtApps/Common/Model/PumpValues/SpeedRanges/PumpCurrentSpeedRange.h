#pragma once

#include "PumpSpeedRangeBase.h"

namespace communication {

/// Speed range profile of the current input.
class PumpCurrentSpeedRange final : public PumpSpeedRangeBase {
    Q_OBJECT

public:
    explicit PumpCurrentSpeedRange(ProtocolObjectContainer& container)
        : PumpSpeedRangeBase(container, objects::SpeedCommanderObject::CurrentSpeedRange,
                             "CurrentSpeedRange") {
        forwardResponse(&objects::SpeedCommanderObject::getCurrentSpeedRangeResponse,
                        &PumpCurrentSpeedRange::getSpeedRangeResponse);
    }
};

} // namespace communication
