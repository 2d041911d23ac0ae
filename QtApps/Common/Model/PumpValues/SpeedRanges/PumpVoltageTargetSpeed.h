#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The speed, tenths of rpm, that the voltage input commands.
class PumpVoltageTargetSpeed final : public ProxyValue<objects::SpeedCommanderObject> {
    Q_OBJECT

public:
    explicit PumpVoltageTargetSpeed(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::SpeedCommanderObject::VoltageTargetSpeed,
                     "VoltageTargetSpeed", {1000, true}) {
        forward(&objects::SpeedCommanderObject::updateVoltageTargetSpeed,
                &PumpVoltageTargetSpeed::onUpdateVoltageTargetSpeed);
    }

signals:
    void voltageTargetSpeedChanged(uint32_t speedDrpm);

public slots:
    void onUpdateVoltageTargetSpeed(uint32_t speedDrpm) {
        emit voltageTargetSpeedChanged(speedDrpm);
    }
};

} // namespace communication
