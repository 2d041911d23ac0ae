#pragma once

#include "ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// Whether the pump-head cover is open.
class PumpCoverStatus final : public ProxyValue<objects::PumpObject> {
    Q_OBJECT

public:
    explicit PumpCoverStatus(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::PumpObject::CoverStatus, "CoverStatus", {1000, true}) {
        forward(&objects::PumpObject::updateCoverStatus, &PumpCoverStatus::onUpdateCoverStatus);
    }

signals:
    void coverStatusChanged(bool coverOpen);

public slots:
    void onUpdateCoverStatus(bool coverOpen) { emit coverStatusChanged(coverOpen); }
};

} // namespace communication
