#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"

namespace communication {

/// The voltage at the analog input, millivolts.
class PumpInputVoltage final : public ProxyValue<objects::AnalogInputObject> {
    Q_OBJECT

public:
    explicit PumpInputVoltage(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::AnalogInputObject::InputVoltage, "InputVoltage",
                     {1000, true}) {
        forward(&objects::AnalogInputObject::updateInputVoltage,
                &PumpInputVoltage::onUpdateInputVoltage);
    }

signals:
    void inputVoltageChanged(float voltageMv);

public slots:
    void onUpdateInputVoltage(float voltageMv) { emit inputVoltageChanged(voltageMv); }
};

} // namespace communication
