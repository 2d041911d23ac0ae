#include "PumpNetworkMacAddress.h"

#include <QStringList>

namespace communication {

using objects::NetworkObject;

PumpNetworkMacAddress::PumpNetworkMacAddress(ProtocolObjectContainer& container)
    : ReadableValue(container, NetworkObject::MacAddress, "MacAddress", {0, false}) {
    setGetRequest("getMacAddress, can't sent request.", &NetworkObject::GetMacAddress);
    forwardResponse(&NetworkObject::getMacAddressResult,
                    &PumpNetworkMacAddress::onGetMacAddressResult);
}

void PumpNetworkMacAddress::onGetMacAddressResult(const halyard::protocol::MacAddress& macAddress) {
    QStringList bytes;
    for (const uint8_t byte : macAddress) {
        bytes << QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
    }
    const QString text = bytes.join(QLatin1Char(':'));
    BWL_LOG_INFO("onGetMacAddressResult",
                 QStringLiteral("onGetMacAddressResult, mac: %1").arg(text));
    emit getMacAddressResult(macAddress);
    emit getMacAddressStringResult(text);
}

} // namespace communication
