#include "PumpSpeedRangeBase.h"

namespace communication {

using objects::QSpeedRangeProfile;
using objects::SpeedCommanderObject;

PumpSpeedRangeBase::PumpSpeedRangeBase(ProtocolObjectContainer& container, uint8_t attribute,
                                       const char* name)
    : SettableValue(container, attribute, name) {
    setGetRequest("getSpeedRange, can't send request",
                  [this] { return proxy().Get(this->attribute()); });
    setSetRequest({"setSpeedRange, can't send request", "retrySetSpeedRange, can't send request"},
                  [this](const QSpeedRangeProfile& profile) {
                      return proxy().WriteProfileToRequest(this->attribute(), profile);
                  });
    setSetDefaultRequest("setSpeedRangeDefault, can't send request",
                         [this] { return proxy().SetDefault(this->attribute()); });
    readBackOn(&PumpSpeedRangeBase::setSpeedRangeAck);
}

} // namespace communication
