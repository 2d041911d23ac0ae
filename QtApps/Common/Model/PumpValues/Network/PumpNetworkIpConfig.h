#pragma once

#include "QtApps/Common/Model/PumpValues/SettableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"

namespace communication {

/// What a Set of the IP configuration carries: the configuration and whether the network
/// module should skip its reset after taking it.
struct IpSettings {
    halyard::protocol::IpConfig ipConfig;
    bool suppressReset = false;
};

/// IP configuration of the network module: read, streamed, set, and reset to the module's
/// defaults (a set-default whose outcome is reported as ipResetResult).
class PumpNetworkIpConfig final : public SettableValue<objects::NetworkObject, IpSettings> {
    Q_OBJECT

public:
    explicit PumpNetworkIpConfig(ProtocolObjectContainer& container);

signals:
    void ipConfigUpdate(halyard::protocol::IpConfig ipConfig);
    void getIpConfigResult(halyard::protocol::IpConfig ipConfig);
    void ipResetResult(bool success);

public slots:
    void get() { SettableValue::get(); }
    void set(const halyard::protocol::IpConfig& ipConfig, bool suppressReset) {
        SettableValue::set({ipConfig, suppressReset});
    }
    void set(const halyard::protocol::IpConfig& ipConfig) { set(ipConfig, false); }
    void retrySet() { SettableValue::retrySet(); }
    void reset() { setDefault(); }
    void onUpdateIpConfig(const halyard::protocol::IpConfig& ipConfig);
    void onGetIpConfigResult(const halyard::protocol::IpConfig& ipConfig) {
        emit getIpConfigResult(ipConfig);
    }
    void onSetDefaultValueSuccess(bool success) { emit ipResetResult(success); }
};

} // namespace communication
