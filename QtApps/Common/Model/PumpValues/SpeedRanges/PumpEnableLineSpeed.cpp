#include "PumpEnableLineSpeed.h"

namespace communication {

using objects::SpeedCommanderObject;

PumpEnableLineSpeed::PumpEnableLineSpeed(ProtocolObjectContainer& container)
    : SettableValue(container, SpeedCommanderObject::EnableLineSpeed, "EnableLineSpeed") {
    setGetRequest("getEnableLineSpeed, can't send request",
                  [this] { return proxy().Get(attribute()); });
    setSetRequest(
        {"setEnableLineSpeed, can't send request", "retrySetEnableLineSpeed, can't send request"},
        &SpeedCommanderObject::SetEnableLineSpeed);
    setSetDefaultRequest("setDefaultEnableLineSpeed, can't send request",
                         [this] { return proxy().SetDefault(attribute()); });
    readBackOn(&PumpEnableLineSpeed::readBack);
    forwardResponse(&SpeedCommanderObject::getEnableLineSpeedResponse,
                    &PumpEnableLineSpeed::getEnableLineSpeedResponse);
}

} // namespace communication
