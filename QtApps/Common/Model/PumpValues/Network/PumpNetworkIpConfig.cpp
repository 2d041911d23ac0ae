#include "PumpNetworkIpConfig.h"

#include <QHostAddress>

namespace communication {

using objects::NetworkObject;

PumpNetworkIpConfig::PumpNetworkIpConfig(ProtocolObjectContainer& container)
    : SettableValue(container, NetworkObject::IpConfig, "IpConfig", {1000, true}) {
    setGetRequest("get, unable to send request", &NetworkObject::GetIpConfig);
    setSetRequest({"set, unable to send request", "retrySet, unable to send request"},
                  [this](const IpSettings& settings) {
                      return proxy().SetIpSettings(settings.ipConfig,
                                                   settings.suppressReset ? 1 : 0);
                  });
    readBackOn(&PumpNetworkIpConfig::readBack);
    forwardResponse(&NetworkObject::getIpConfigResult, &PumpNetworkIpConfig::onGetIpConfigResult);
    forward(&NetworkObject::updateIpConfig, &PumpNetworkIpConfig::onUpdateIpConfig);
    // The reset is this value's set-default.
    setSetDefaultRequest("reset, unable to send request",
                         [this] { return proxy().ResetIpConfig(); });
    connect(this, &PumpValueBase::setDefaultValueSuccess, this,
            &PumpNetworkIpConfig::onSetDefaultValueSuccess);
}

void PumpNetworkIpConfig::onUpdateIpConfig(const halyard::protocol::IpConfig& ipConfig) {
    BWL_LOG_INFO("onUpdateIpConfig",
                 QStringLiteral("onUpdateIpConfig: dhcp %1, ip %2, mask %3, gateway %4")
                     .arg(boolText(ipConfig.dhcpEnabled),
                          QHostAddress(ipConfig.ipAddress).toString(),
                          QHostAddress(ipConfig.subnetMask).toString(),
                          QHostAddress(ipConfig.gateway).toString()));
    emit ipConfigUpdate(ipConfig);
}

} // namespace communication
