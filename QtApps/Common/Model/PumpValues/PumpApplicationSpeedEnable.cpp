#include "PumpApplicationSpeedEnable.h"

namespace communication {

using objects::PumpObject;

PumpApplicationSpeedEnable::PumpApplicationSpeedEnable(ProtocolObjectContainer& container)
    : SettableValue(container, PumpObject::ApplicationSpeedEnable, "ApplicationSpeedEnable") {
    setGetRequest("getApplicationSpeedEnable, can't send GetApplicationSpeedEnable",
                  &PumpObject::RequestGetApplicationSpeedEnable);
    setSetRequest({"setApplicationSpeedEnable, can't send SetApplicationSpeedEnable",
                   "retrySetApplicationSpeedEnable, can't send SetApplicationSpeedEnable"},
                  &PumpObject::RequestSetApplicationSpeedEnable, wire::flagToWire);
    readBackOn(&PumpApplicationSpeedEnable::onSetApplicationSpeedEnableAck);
    forwardResponse(&PumpObject::getApplicationSpeedEnableResponse,
                    &PumpApplicationSpeedEnable::onGetApplicationSpeedEnableResponse);
}

} // namespace communication
