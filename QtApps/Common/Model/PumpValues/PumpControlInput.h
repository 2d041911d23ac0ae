#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// What commands the pump's speed: none, the enable line, an analog input, the application or
/// the network.
class PumpControlInput final
    : public SettableValue<objects::PumpObject, halyard::pump::ControlInput> {
    Q_OBJECT

public:
    explicit PumpControlInput(ProtocolObjectContainer& container);

signals:
    void getControlInputResponse(halyard::pump::ControlInput controlInput);

public slots:
    void getControlInput() { get(); }
    void setControlInput(halyard::pump::ControlInput controlInput) { set(controlInput); }
    void retrySetControlInput() { retrySet(); }
    void onGetControlInputResponse(halyard::pump::ControlInput controlInput) {
        emit getControlInputResponse(controlInput);
    }
    void onSetControlInputAck(uint8_t attribute) { readBack(attribute); }
};

} // namespace communication
