#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// The speed, tenths of rpm, at which the pump runs while the enable line is asserted.
class PumpEnableLineSpeed final : public SettableValue<objects::SpeedCommanderObject, uint32_t> {
    Q_OBJECT

public:
    explicit PumpEnableLineSpeed(ProtocolObjectContainer& container);

signals:
    void getEnableLineSpeedResponse(uint32_t speedDrpm);

public slots:
    void getEnableLineSpeed() { get(); }
    void setEnableLineSpeed(uint32_t EnableLineSpeed) { set(EnableLineSpeed); }
    void setDefaultEnableLineSpeed() { setDefault(); }
};

} // namespace communication
