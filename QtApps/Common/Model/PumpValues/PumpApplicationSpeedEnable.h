#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// Whether the pump runs at the application speed (the application commands it).
class PumpApplicationSpeedEnable final : public SettableValue<objects::PumpObject, bool> {
    Q_OBJECT

public:
    explicit PumpApplicationSpeedEnable(ProtocolObjectContainer& container);

signals:
    void getApplicationSpeedEnableResponse(bool enable);

public slots:
    void getApplicationSpeedEnable() { get(); }
    void setApplicationSpeedEnable(bool enable) { set(enable); }
    void retrySetApplicationSpeedEnable() { retrySet(); }
    void onGetApplicationSpeedEnableResponse(bool enable) {
        emit getApplicationSpeedEnableResponse(enable);
    }
    void onSetApplicationSpeedEnableAck(uint8_t attribute) { readBack(attribute); }
};

} // namespace communication
