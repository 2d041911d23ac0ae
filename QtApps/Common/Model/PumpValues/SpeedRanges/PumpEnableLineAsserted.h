#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

namespace communication {

/// Whether the enable line is asserted.
class PumpEnableLineAsserted final : public ProxyValue<objects::SpeedCommanderObject> {
    Q_OBJECT

public:
    explicit PumpEnableLineAsserted(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::SpeedCommanderObject::EnableLineAsserted,
                     "EnableLineAsserted", {1000, true}) {
        forward(&objects::SpeedCommanderObject::updateEnableLineAsserted,
                &PumpEnableLineAsserted::onUpdateEnableLineAsserted);
    }

signals:
    void enableLineAssertedChanged(bool asserted);

public slots:
    void onUpdateEnableLineAsserted(bool asserted) { emit enableLineAssertedChanged(asserted); }
};

} // namespace communication
