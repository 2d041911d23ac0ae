#include "PumpApplicationSpeed.h"

namespace communication {

using objects::PumpObject;

PumpApplicationSpeed::PumpApplicationSpeed(ProtocolObjectContainer& container)
    : SettableValue(container, PumpObject::ApplicationSpeed, "ApplicationSpeed", {1000, true}) {
    setGetRequest("getApplicationSpeed, can't send GetApplicationSpeed",
                  &PumpObject::RequestGetApplicationSpeed);
    setSetRequest({"setApplicationSpeed, can't send SetApplicationSpeed",
                   "retrySetApplicationSpeed, can't send SetApplicationSpeed"},
                  &PumpObject::RequestSetApplicationSpeed, wire::signedToWire);
    readBackOn(&PumpApplicationSpeed::onSetApplicationSpeedAck);
    forwardResponse(&PumpObject::getApplicationSpeedResponse,
                    &PumpApplicationSpeed::onGetApplicationSpeedResponse);
    forward(&PumpObject::updateApplicationSpeed,
            &PumpApplicationSpeed::onGetApplicationSpeedResponse, wire::signedFromWire);
}

} // namespace communication
