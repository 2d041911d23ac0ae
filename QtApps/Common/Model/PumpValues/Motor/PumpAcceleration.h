#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// How fast the motor speeds up, rpm per second.
class PumpAcceleration final : public SettableValue<objects::MotorObject, float> {
    Q_OBJECT

public:
    explicit PumpAcceleration(ProtocolObjectContainer& container);

signals:
    void getAccelerationResponse(float acceleration);

public slots:
    void getAcceleration() { get(); }
    void setAcceleration(float acceleration) { set(acceleration); }
    void retrySetAcceleration() { retrySet(); }
    void onGetAccelerationResponse(float acceleration) {
        emit getAccelerationResponse(acceleration);
    }
    void onSetAccelerationAck(uint8_t attribute) { readBack(attribute); }
};

} // namespace communication
