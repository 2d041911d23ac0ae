#pragma once

#include "PumpAnalogFilterDataBase.h"

namespace communication {

/// Fast stream of the current input filter's data.
class PumpAnalogFilterDataCurrent final : public PumpAnalogFilterDataBase {
    Q_OBJECT

public:
    explicit PumpAnalogFilterDataCurrent(ProtocolObjectContainer& container)
        : PumpAnalogFilterDataBase(container, objects::AnalogFilterObject::FilterDataCurrent,
                                   "FilterDataCurrent") {}
};

} // namespace communication
