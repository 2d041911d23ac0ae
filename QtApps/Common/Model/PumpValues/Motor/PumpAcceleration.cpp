#include "PumpAcceleration.h"

namespace communication {

using objects::MotorObject;

PumpAcceleration::PumpAcceleration(ProtocolObjectContainer& container)
    : SettableValue(container, MotorObject::Acceleration, "Acceleration") {
    setGetRequest("getAcceleration, can't send GetAcceleration", &MotorObject::GetAcceleration);
    setSetRequest({"setAcceleration, can't send SetAcceleration",
                   "retrySetAcceleration, can't send SetAcceleration"},
                  &MotorObject::SetAcceleration);
    readBackOn(&PumpAcceleration::onSetAccelerationAck);
    forwardResponse(&MotorObject::getAccelerationResponse,
                    &PumpAcceleration::onGetAccelerationResponse);
}

} // namespace communication
