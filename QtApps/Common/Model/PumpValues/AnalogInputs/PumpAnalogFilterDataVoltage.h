#pragma once

#include "PumpAnalogFilterDataBase.h"

namespace communication {

/// Fast stream of the voltage input filter's data.
class PumpAnalogFilterDataVoltage final : public PumpAnalogFilterDataBase {
    Q_OBJECT

public:
    explicit PumpAnalogFilterDataVoltage(ProtocolObjectContainer& container)
        : PumpAnalogFilterDataBase(container, objects::AnalogFilterObject::FilterDataVoltage,
                                   "FilterDataVoltage") {}
};

} // namespace communication
