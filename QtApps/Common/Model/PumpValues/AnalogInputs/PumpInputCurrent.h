#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"

namespace communication {

/// The current at the analog input, microamperes.
class PumpInputCurrent final : public ProxyValue<objects::AnalogInputObject> {
    Q_OBJECT

public:
    explicit PumpInputCurrent(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::AnalogInputObject::InputCurrent, "InputCurrent",
                     {1000, true}) {
        forward(&objects::AnalogInputObject::updateInputCurrent,
                &PumpInputCurrent::onUpdateInputCurrent);
    }

signals:
    void inputCurrentChanged(float inputCurrentUa);

public slots:
    void onUpdateInputCurrent(float inputCurrentUa) { emit inputCurrentChanged(inputCurrentUa); }
};

} // namespace communication
