#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// Whether the motor has found its rotor position.
class PumpIsAligned final : public ProxyValue<objects::MotorObject> {
    Q_OBJECT

public:
    explicit PumpIsAligned(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::MotorObject::Aligned, "IsAligned", {1000, true}) {
        forward(&objects::MotorObject::updateIsAligned, &PumpIsAligned::onUpdateIsAligned);
    }

signals:
    void isAlignedChanged(bool isAligned);

public slots:
    void onUpdateIsAligned(bool isAligned) { emit isAlignedChanged(isAligned); }
};

} // namespace communication
