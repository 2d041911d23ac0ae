#include "PumpApplicationOverrideActive.h"

namespace communication {

using objects::PumpObject;

PumpApplicationOverrideActive::PumpApplicationOverrideActive(ProtocolObjectContainer& container)
    : SettableValue(container, PumpObject::ApplicationOverrideActive,
                    "ApplicationSpeedOverrideActive", {100, true}) {
    setGetRequest("getApplicationOverrideActive, can't send GetApplicationOverrideActive",
                  &PumpObject::RequestGetApplicationOverrideActive);
    setSetRequest({"setApplicationOverrideActive, can't send SetApplicationOverrideActive",
                   "retrySetApplicationOverrideActive, can't send SetApplicationOverrideActive"},
                  &PumpObject::RequestSetApplicationOverrideActive, wire::flagToWire);
    readBackOn(&PumpApplicationOverrideActive::onSetApplicationOverrideActiveAck);
    forwardResponse(&PumpObject::getApplicationOverrideActiveResponse,
                    &PumpApplicationOverrideActive::onGetApplicationOverrideActiveResponse);
    forward(&PumpObject::updateApplicationOverrideActive,
            &PumpApplicationOverrideActive::onApplicationOverrideActiveUpdate);
}

} // namespace communication
