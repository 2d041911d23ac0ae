#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The hysteresis of one analog input. It has no Get of its own: the pump reports it as a
/// field of the input's speed range profile, so an acknowledged set re-reads that profile,
/// whose answer reaches the speed range value of the input.
class PumpHysteresisBase : public SettableValue<objects::SpeedCommanderObject, float> {
    Q_OBJECT

public slots:
    /// The pump takes whole units: the value is truncated toward zero.
    void set(float hysteresis) { SettableValue::set(hysteresis); }

private slots:
    void onSetHysteresisAck(uint8_t attribute) { readBack(attribute); }

protected:
    PumpHysteresisBase(ProtocolObjectContainer& container, uint8_t attribute, const char* name,
                       uint8_t speedRangeAttribute)
        : SettableValue(container, attribute, name) {
        setGetRequest("readSpeedRange, can't send request",
                      [this, speedRangeAttribute] { return proxy().Get(speedRangeAttribute); });
        setSetRequest(
            {"set, can't send request", "retrySet, can't send request"}, [this](float hysteresis) {
                return proxy().SetHysteresis(this->attribute(), wire::truncatedToWire(hysteresis));
            });
        readBackOn(&PumpHysteresisBase::onSetHysteresisAck);
    }
};

} // namespace communication
