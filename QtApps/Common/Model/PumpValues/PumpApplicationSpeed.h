#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// The speed the application commands, in tenths of rpm; streamed by the pump.
class PumpApplicationSpeed final : public SettableValue<objects::PumpObject, int32_t> {
    Q_OBJECT

public:
    explicit PumpApplicationSpeed(ProtocolObjectContainer& container);

signals:
    void getApplicationSpeedResponse(int32_t applicationSpeed);

public slots:
    void getApplicationSpeed() { get(); }
    void setApplicationSpeed(int32_t applicationSpeed) { set(applicationSpeed); }
    void retrySetApplicationSpeed() { retrySet(); }
    void onGetApplicationSpeedResponse(int32_t applicationSpeed) {
        emit getApplicationSpeedResponse(applicationSpeed);
    }
    void onSetApplicationSpeedAck(uint8_t attribute) { readBack(attribute); }
};

} // namespace communication
