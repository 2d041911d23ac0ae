#pragma once

#include "PumpHysteresisBase.h"

namespace communication {

/// Hysteresis of the voltage input; carried by the voltage speed range profile.
class PumpVoltageHysteresis final : public PumpHysteresisBase {
    Q_OBJECT

public:
    explicit PumpVoltageHysteresis(ProtocolObjectContainer& container)
        : PumpHysteresisBase(container, 8, "VoltageHysteresis",
                             objects::SpeedCommanderObject::VoltageSpeedRange) {}
};

} // namespace communication
