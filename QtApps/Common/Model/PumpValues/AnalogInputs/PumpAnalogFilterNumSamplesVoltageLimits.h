#pragma once

#include "PumpAnalogFilterNumSamplesLimitsBase.h"

namespace communication {

/// The range of the voltage input filter's number of samples.
class PumpAnalogFilterNumSamplesVoltageLimits final : public PumpAnalogFilterNumSamplesLimitsBase {
    Q_OBJECT

public:
    explicit PumpAnalogFilterNumSamplesVoltageLimits(ProtocolObjectContainer& container)
        : PumpAnalogFilterNumSamplesLimitsBase(
              container, objects::AnalogFilterObject::NumSamplesVoltageLimits,
              "NumSamplesVoltageLimits", &objects::AnalogFilterObject::GetNumSamplesVoltageLimits,
              "getNumSamplesLimits, can't send GetNumSamplesVoltageLimits") {}
};

} // namespace communication
