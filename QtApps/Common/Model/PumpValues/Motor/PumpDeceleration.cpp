#include "PumpDeceleration.h"

namespace communication {

using objects::MotorObject;

PumpDeceleration::PumpDeceleration(ProtocolObjectContainer& container)
    : SettableValue(container, MotorObject::Deceleration, "Deceleration") {
    setGetRequest("getDeceleration, can't send GetDeceleration", &MotorObject::GetDeceleration);
    setSetRequest({"setDeceleration, can't send SetDeceleration",
                   "retrySetDeceleration, can't send SetDeceleration"},
                  &MotorObject::SetDeceleration);
    readBackOn(&PumpDeceleration::onSetDecelerationAck);
    forwardResponse(&MotorObject::getDecelerationResponse,
                    &PumpDeceleration::onGetDecelerationResponse);
}

} // namespace communication
