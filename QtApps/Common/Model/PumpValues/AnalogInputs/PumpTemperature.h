#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"

namespace communication {

/// The drive's temperature, degrees Celsius.
class PumpTemperature final : public ProxyValue<objects::AnalogInputObject> {
    Q_OBJECT

public:
    explicit PumpTemperature(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::AnalogInputObject::Temperature, "Temperature",
                     {1000, true}) {
        forward(&objects::AnalogInputObject::updateTemperature,
                &PumpTemperature::onUpdateTemperature);
    }

signals:
    void tempChanged(float temperatureC);

public slots:
    void onUpdateTemperature(float temperatureC) { emit tempChanged(temperatureC); }
};

} // namespace communication
