#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// How fast the motor slows down, rpm per second.
class PumpDeceleration final : public SettableValue<objects::MotorObject, float> {
    Q_OBJECT

public:
    explicit PumpDeceleration(ProtocolObjectContainer& container);

signals:
    void getDecelerationResponse(float deceleration);

public slots:
    void getDeceleration() { get(); }
    void setDeceleration(float deceleration) { set(deceleration); }
    void retrySetDeceleration() { retrySet(); }
    void onGetDecelerationResponse(float deceleration) {
        emit getDecelerationResponse(deceleration);
    }
    void onSetDecelerationAck(uint8_t attribute) { readBack(attribute); }
};

} // namespace communication
