#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"

namespace communication {

/// The network module's four link flags, streamed.
class PumpNetworkLinkStatus final : public ProxyValue<objects::NetworkObject> {
    Q_OBJECT

public:
    explicit PumpNetworkLinkStatus(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::NetworkObject::LinkStatus, "LinkStatus", {1000, true}) {
        forward(&objects::NetworkObject::updateLinkStatus,
                &PumpNetworkLinkStatus::onUpdateLinkStatus);
    }

signals:
    void linkConnectedUpdate(bool linkConnected);
    void port1ConnectedUpdate(bool port1Connected);
    void port2ConnectedUpdate(bool port2Connected);
    void ipEstablishedUpdate(bool ipEstablished);

public slots:
    void onUpdateLinkStatus(bool linkConnected, bool port1Connected, bool port2Connected,
                            bool ipEstablished) {
        BWL_LOG_INFO("onUpdateLinkStatus",
                     QStringLiteral("onUpdateLinkStatus: link %1, port 1 %2, port 2 %3, ip %4")
                         .arg(boolText(linkConnected), boolText(port1Connected),
                              boolText(port2Connected), boolText(ipEstablished)));
        emit linkConnectedUpdate(linkConnected);
        emit port1ConnectedUpdate(port1Connected);
        emit port2ConnectedUpdate(port2Connected);
        emit ipEstablishedUpdate(ipEstablished);
    }
};

} // namespace communication
