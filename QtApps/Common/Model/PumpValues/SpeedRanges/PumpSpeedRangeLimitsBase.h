#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The limits of one speed range profile, read on request; they come in the profile's own
/// layout.
class PumpSpeedRangeLimitsBase : public ReadableValue<objects::SpeedCommanderObject> {
    Q_OBJECT

signals:
    void getSpeedRangeLimitsResponse(const communication::objects::QSpeedRangeProfile& limits);

public slots:
    void getSpeedRangeLimits() { get(); }

protected:
    PumpSpeedRangeLimitsBase(ProtocolObjectContainer& container, uint8_t attribute,
                             const char* name)
        : ReadableValue(container, attribute, name) {
        setGetRequest("getSpeedRangeLimits, can't send request",
                      [this] { return proxy().Get(this->attribute()); });
    }
};

} // namespace communication
