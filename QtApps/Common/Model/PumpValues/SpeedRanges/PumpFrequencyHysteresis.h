#pragma once

#include "PumpHysteresisBase.h"

namespace communication {

/// Hysteresis of the frequency input; carried by the frequency speed range profile.
class PumpFrequencyHysteresis final : public PumpHysteresisBase {
    Q_OBJECT

public:
    explicit PumpFrequencyHysteresis(ProtocolObjectContainer& container)
        : PumpHysteresisBase(container, 15, "FrequencyHysteresis",
                             objects::SpeedCommanderObject::FrequencySpeedRange) {}
};

} // namespace communication
