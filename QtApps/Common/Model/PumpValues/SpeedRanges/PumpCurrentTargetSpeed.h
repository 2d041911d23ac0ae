#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The speed, tenths of rpm, that the current input commands.
class PumpCurrentTargetSpeed final : public ProxyValue<objects::SpeedCommanderObject> {
    Q_OBJECT

public:
    explicit PumpCurrentTargetSpeed(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::SpeedCommanderObject::CurrentTargetSpeed,
                     "CurrentTargetSpeed", {1000, true}) {
        forward(&objects::SpeedCommanderObject::updateCurrentTargetSpeed,
                &PumpCurrentTargetSpeed::onUpdateCurrentTargetSpeed);
    }

signals:
    void currentTargetSpeedChanged(uint32_t speedDrpm);

public slots:
    void onUpdateCurrentTargetSpeed(uint32_t speedDrpm) {
        emit currentTargetSpeedChanged(speedDrpm);
    }
};

} // namespace communication
