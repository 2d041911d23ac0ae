#pragma once

#include "SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"

namespace communication {

/// Whether the pump's service port offers its command line.
class PumpPlecPortCliEnable final : public SettableValue<objects::OemDeviceObject, bool> {
    Q_OBJECT

public:
    explicit PumpPlecPortCliEnable(ProtocolObjectContainer& container);

signals:
    void cliEnableValue(bool value);

public slots:
    void getCliEnable() { get(); }
    void setCliEnable(bool enable) { set(enable); }
    /// The pump accepted the setting: read it back.
    void onSetCliEnable() { get(); }
    void onReceivedCliEnableAck(bool value) { emit cliEnableValue(value); }
};

} // namespace communication
