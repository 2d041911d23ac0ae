#pragma once

#include "QtApps/Common/Model/PumpValues/PumpReset.h"
#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorStepperObject.h"

namespace communication {

/// The stepper drive's torque index. The pump applies a new index only after a reboot, so an
/// acknowledged set reboots the pump through the value's own reset (never on a time-out).
class PumpTorqueIndex final : public SettableValue<objects::MotorStepperObject, uint8_t> {
    Q_OBJECT

public:
    explicit PumpTorqueIndex(ProtocolObjectContainer& container);

    PumpReset& pumpReset() { return mReset; }

signals:
    void getTorqueIndexResponse(uint8_t index);

public slots:
    void getTorqueIndex() { get(); }
    void setTorqueIndexAndReboot(uint8_t index) { set(index); }
    void retrySetTorqueIndex() { retrySet(); }
    void onGetTorqueIndexResponse(uint8_t index);
    void onSetTorqueIndexAck(uint8_t attribute);

private:
    PumpReset mReset;
};

} // namespace communication
