#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// The motor's measured speed, tenths of rpm. Streamed periodically, not on change: it moves
/// all the time while the pump runs.
class PumpActualSpeed final : public ProxyValue<objects::MotorObject> {
    Q_OBJECT

public:
    explicit PumpActualSpeed(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::MotorObject::ActualSpeed, "ActualSpeed", {100, false}) {
        forward(&objects::MotorObject::updateActualSpeed, &PumpActualSpeed::onUpdateActualSpeed);
    }

signals:
    void actualSpeedChanged(int32_t speedDrpm);

public slots:
    void onUpdateActualSpeed(int32_t speedDrpm) { emit actualSpeedChanged(speedDrpm); }
};

} // namespace communication
