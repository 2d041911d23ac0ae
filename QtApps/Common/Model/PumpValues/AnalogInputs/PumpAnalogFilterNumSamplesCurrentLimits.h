#pragma once

#include "PumpAnalogFilterNumSamplesLimitsBase.h"

namespace communication {

/// The range of the current input filter's number of samples.
class PumpAnalogFilterNumSamplesCurrentLimits final : public PumpAnalogFilterNumSamplesLimitsBase {
    Q_OBJECT

public:
    explicit PumpAnalogFilterNumSamplesCurrentLimits(ProtocolObjectContainer& container)
        : PumpAnalogFilterNumSamplesLimitsBase(
              container, objects::AnalogFilterObject::NumSamplesCurrentLimits,
              "NumSamplesCurrentLimits", &objects::AnalogFilterObject::GetNumSamplesCurrentLimits,
              "getNumSamplesLimits, can't send GetNumSamplesCurrentLimits") {}
};

} // namespace communication
