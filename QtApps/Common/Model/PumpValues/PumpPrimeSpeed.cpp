#include "PumpPrimeSpeed.h"

namespace communication {

using objects::PrimeObject;

PumpPrimeSpeed::PumpPrimeSpeed(ProtocolObjectContainer& container)
    : SettableValue(container, PrimeObject::PrimeSpeed, "PrimeSpeed", {1000, true}) {
    setGetRequest("getPrimeSpeed, can't send GetPrimeSpeed", &PrimeObject::GetPrimeSpeed);
    setSetRequest(
        {"setPrimeSpeed, can't send SetPrimeSpeed", "retrySetPrimeSpeed, can't send SetPrimeSpeed"},
        &PrimeObject::SetPrimeSpeed);
    readBackOn(&PumpPrimeSpeed::onSetPrimeSpeedAck);
    forwardResponse(&PrimeObject::getPrimeSpeedResponse, &PumpPrimeSpeed::onGetPrimeSpeedResponse);
    forward(&PrimeObject::updatePrimeSpeed, &PumpPrimeSpeed::onGetPrimeSpeedResponse);
}

} // namespace communication
