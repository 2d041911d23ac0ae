#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"

namespace communication {

/// The drive's supply bus voltage, millivolts.
class PumpBusVoltage final : public ProxyValue<objects::AnalogInputObject> {
    Q_OBJECT

public:
    explicit PumpBusVoltage(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::AnalogInputObject::BusVoltage, "BusVoltage",
                     {1000, true}) {
        forward(&objects::AnalogInputObject::updateBusVoltage, &PumpBusVoltage::onUpdateBusVoltage);
    }

signals:
    void busVoltageChanged(float busVoltageMv);

public slots:
    void onUpdateBusVoltage(float busVoltageMv) { emit busVoltageChanged(busVoltageMv); }
};

} // namespace communication
