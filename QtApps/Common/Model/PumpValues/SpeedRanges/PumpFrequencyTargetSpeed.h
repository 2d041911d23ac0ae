#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The speed, tenths of rpm, that the frequency input commands.
class PumpFrequencyTargetSpeed final : public ProxyValue<objects::SpeedCommanderObject> {
    Q_OBJECT

public:
    explicit PumpFrequencyTargetSpeed(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::SpeedCommanderObject::FrequencyTargetSpeed,
                     "FrequencyTargetSpeed", {1000, true}) {
        forward(&objects::SpeedCommanderObject::updateFrequencyTargetSpeed,
                &PumpFrequencyTargetSpeed::onUpdateFrequencyTargetSpeed);
    }

signals:
    void frequencyTargetSpeedChanged(uint32_t speedDrpm);

public slots:
    void onUpdateFrequencyTargetSpeed(uint32_t speedDrpm) {
        emit frequencyTargetSpeedChanged(speedDrpm);
    }
};

} // namespace communication
