#pragma once

#include "ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// Power the drive draws, in watts.
class PumpPowerUsage final : public ProxyValue<objects::PumpObject> {
    Q_OBJECT

public:
    explicit PumpPowerUsage(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::PumpObject::PowerUsage, "PowerUsage", {1000, true}) {
        forward(&objects::PumpObject::updatePowerUsage, &PumpPowerUsage::onUpdatePowerUsage);
    }

signals:
    void powerUsageChanged(float powerUsageW);

public slots:
    void onUpdatePowerUsage(float powerUsageW) { emit powerUsageChanged(powerUsageW); }
};

} // namespace communication
