#pragma once

#include "PumpHysteresisBase.h"

namespace communication {

/// Hysteresis of the current input; carried by the current speed range profile.
class PumpCurrentHysteresis final : public PumpHysteresisBase {
    Q_OBJECT

public:
    explicit PumpCurrentHysteresis(ProtocolObjectContainer& container)
        : PumpHysteresisBase(container, 4, "CurrentHysteresis",
                             objects::SpeedCommanderObject::CurrentSpeedRange) {}
};

} // namespace communication
