#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

namespace communication {

/// Whether the application speed overrides the pump's own control input.
class PumpApplicationOverrideActive final : public SettableValue<objects::PumpObject, bool> {
    Q_OBJECT

public:
    explicit PumpApplicationOverrideActive(ProtocolObjectContainer& container);

signals:
    void getApplicationOverrideActiveResponse(bool active);

public slots:
    void getApplicationOverrideActive() { get(); }
    void setApplicationOverrideActive(bool active) { set(active); }
    void onGetApplicationOverrideActiveResponse(bool active) {
        emit getApplicationOverrideActiveResponse(active);
    }
    void onSetApplicationOverrideActiveAck(uint8_t attribute) { readBack(attribute); }
    void onApplicationOverrideActiveUpdate(bool active) {
        emit getApplicationOverrideActiveResponse(active);
    }
};

} // namespace communication
