#pragma once

#include "PumpAnalogFilterNumSamplesBase.h"

namespace communication {

/// Number of samples of the current input filter.
class PumpAnalogFilterNumSamplesCurrent final : public PumpAnalogFilterNumSamplesBase {
    Q_OBJECT

public:
    explicit PumpAnalogFilterNumSamplesCurrent(ProtocolObjectContainer& container)
        : PumpAnalogFilterNumSamplesBase(container, objects::AnalogFilterObject::NumSamplesCurrent,
                                         "NumSamplesCurrent",
                                         &objects::AnalogFilterObject::GetNumSamplesCurrent,
                                         &objects::AnalogFilterObject::SetNumSamplesCurrent,
                                         "getNumSamples, can't send GetNumSamplesCurrent",
                                         "onSetNumSamples, can't send SetNumSamplesCurrent") {}
};

} // namespace communication
