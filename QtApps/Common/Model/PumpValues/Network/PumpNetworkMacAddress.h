#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"

namespace communication {

/// MAC address of the network module, as bytes in wire order and as text.
class PumpNetworkMacAddress final : public ReadableValue<objects::NetworkObject> {
    Q_OBJECT

public:
    explicit PumpNetworkMacAddress(ProtocolObjectContainer& container);

signals:
    void getMacAddressResult(halyard::protocol::MacAddress macAddress);
    /// Six two-digit upper-case hexadecimal bytes separated by colons.
    void getMacAddressStringResult(QString macAddress);

public slots:
    void getMacAddress() { get(); }
    void onGetMacAddressResult(const halyard::protocol::MacAddress& macAddress);
};

} // namespace communication
