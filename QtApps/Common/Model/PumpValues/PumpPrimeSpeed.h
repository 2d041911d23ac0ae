#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PrimeObject.h"

namespace communication {

/// The speed, tenths of rpm, at which the pump runs while the prime input is active.
class PumpPrimeSpeed final : public SettableValue<objects::PrimeObject, uint32_t> {
    Q_OBJECT

public:
    explicit PumpPrimeSpeed(ProtocolObjectContainer& container);

signals:
    void getPrimeSpeedResponse(uint32_t speedDrpm);

public slots:
    void getPrimeSpeed() { get(); }
    void setPrimeSpeed(uint32_t speedDrpm) { set(speedDrpm); }
    void retrySetPrimeSpeed() { retrySet(); }
    void onGetPrimeSpeedResponse(uint32_t speedDrpm) {
        BWL_LOG_INFO("onGetPrimeSpeedResponse",
                     QStringLiteral("onGetPrimeSpeedResponse %1").arg(speedDrpm));
        emit getPrimeSpeedResponse(speedDrpm);
    }
    void onSetPrimeSpeedAck(uint8_t attribute) { readBack(attribute); }
};

} // namespace communication
