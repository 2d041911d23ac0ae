#pragma once

#include "ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// Direction of rotation as the pump reports it; it is set through the application speed.
class PumpDirection final : public ProxyValue<objects::PumpObject> {
    Q_OBJECT

public:
    explicit PumpDirection(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::PumpObject::Direction, "Direction", {1000, true}) {
        forward(&objects::PumpObject::updateDirection, &PumpDirection::onUpdateDirection);
    }

signals:
    void directionChanged(halyard::Direction direction);

public slots:
    void onUpdateDirection(halyard::Direction direction) { emit directionChanged(direction); }
};

} // namespace communication
