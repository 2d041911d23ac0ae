#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"

namespace communication {

/// The frequency at the analog input, hertz.
class PumpInputFrequency final : public ProxyValue<objects::AnalogInputObject> {
    Q_OBJECT

public:
    explicit PumpInputFrequency(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::AnalogInputObject::Frequency, "InputFrequency",
                     {1000, true}) {
        forward(&objects::AnalogInputObject::updateFrequency,
                &PumpInputFrequency::onUpdateInputFrequency);
    }

signals:
    void inputFrequencyChanged(float frequencyHz);

public slots:
    void onUpdateInputFrequency(float frequencyHz) { emit inputFrequencyChanged(frequencyHz); }
};

} // namespace communication
