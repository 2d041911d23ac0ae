#include "PumpHead.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"

namespace communication {

using objects::OemDeviceObject;

PumpHead::PumpHead(ProtocolObjectContainer& container)
    : SettableValue(container, OemDeviceObject::PumpHead, "PumpHead") {
    setGetRequest("get, can't send request", &OemDeviceObject::RequestGetPumpHead);
    setSetRequest({"set, can't send request", "retrySet, can't send request"},
                  [this](const QString& head) { return proxy().RequestSetPumpHead(head); });
    forwardResponse(&OemDeviceObject::receivedPumpHead, &PumpHead::onGetHeadResponse);
    connect(&proxy(), &OemDeviceObject::receivedSetAck, this,
            [this](bool success, uint8_t attribute) { onSetPumpHeadAck(success, attribute); });
}

void PumpHead::onGetHeadResponse(halyard::pump::PumpHead head) {
    emit getHeadResponse(objects::PumpHeadCatalogueEntry(wire::codeOf(head)).name);
}

void PumpHead::onSetPumpHeadAck(bool success, uint8_t attribute) {
    // A refused head is not acknowledged: the screens keep what the pump last reported.
    if (!success || attribute != this->attribute()) {
        return;
    }
    onAckSetValue(attribute);
    emit setHeadAck();
    readBack(attribute);
}

} // namespace communication
