#pragma once

#include "PumpAnalogFilterNumSamplesBase.h"

namespace communication {

/// Number of samples of the voltage input filter.
class PumpAnalogFilterNumSamplesVoltage final : public PumpAnalogFilterNumSamplesBase {
    Q_OBJECT

public:
    explicit PumpAnalogFilterNumSamplesVoltage(ProtocolObjectContainer& container)
        : PumpAnalogFilterNumSamplesBase(container, objects::AnalogFilterObject::NumSamplesVoltage,
                                         "NumSamplesVoltage",
                                         &objects::AnalogFilterObject::GetNumSamplesVoltage,
                                         &objects::AnalogFilterObject::SetNumSamplesVoltage,
                                         "getNumSamples, can't send GetNumSamplesVoltage",
                                         "onSetNumSamples, can't send SetNumSamplesVoltage") {}
};

} // namespace communication
