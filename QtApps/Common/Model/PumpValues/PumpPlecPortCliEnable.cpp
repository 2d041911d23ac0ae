#include "PumpPlecPortCliEnable.h"

namespace communication {

using objects::OemDeviceObject;

PumpPlecPortCliEnable::PumpPlecPortCliEnable(ProtocolObjectContainer& container)
    : SettableValue(container, OemDeviceObject::PlecPortCliEnable, "PlecPortCliEnable") {
    setGetRequest("getCliEnable, can't send request",
                  &OemDeviceObject::RequestGetPlecPortCliEnable);
    setSetRequest({"setCliEnable, can't send request", "setCliEnable, can't send request"},
                  &OemDeviceObject::RequestSetPlecPortCliEnable, wire::flagToWire);
    forwardResponse(&OemDeviceObject::receivedCliEnableAck,
                    &PumpPlecPortCliEnable::onReceivedCliEnableAck, wire::flagFromWire);
    connect(&proxy(), &OemDeviceObject::receivedSetAck, this,
            [this](bool success, uint8_t attribute) {
                if (success && attribute == this->attribute()) {
                    onAckSetValue(attribute);
                    onSetCliEnable();
                }
            });
}

} // namespace communication
