#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// Whether the motor windings are powered.
class MotorIsEnergized final : public ProxyValue<objects::MotorObject> {
    Q_OBJECT

public:
    explicit MotorIsEnergized(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::MotorObject::Energised, "IsEnergized", {1000, true}) {
        forward(&objects::MotorObject::updateIsEnergized, &MotorIsEnergized::onUpdateIsEnergized);
    }

signals:
    void isEnergizedChanged(bool isEnergized);

public slots:
    void onUpdateIsEnergized(bool isEnergized) { emit isEnergizedChanged(isEnergized); }
};

} // namespace communication
