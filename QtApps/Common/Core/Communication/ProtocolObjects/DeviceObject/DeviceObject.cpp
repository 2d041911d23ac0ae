#include "DeviceObject.h"

namespace communication::objects {

namespace {

// The device type, then the application firmware version as major, minor, patch.
bool ReadDeviceDetails(halyard::protocol::PayloadReader& reader, DeviceDetails& details) {
    return reader.Read(details.deviceType) && reader.Read(details.appVersion.major) &&
           reader.Read(details.appVersion.minor) && reader.Read(details.appVersion.patch);
}

} // namespace

DeviceObject::DeviceObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool DeviceObject::RequestGetAll() {
    return SendEmpty(0, Operation::GetAll);
}

bool DeviceObject::RequestReset() {
    return SendEmpty(0, Operation::Reset);
}

bool DeviceObject::HandleTimeout(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
    case Operation::GetAll:
        emit getTimedOut(message.attribute);
        break;
    case Operation::Reset:
        emit resetTimedOut();
        break;
    default:
        break;
    }
    return true;
}

bool DeviceObject::HandleRefusal(const ProtocolMessage& /*message*/) {
    return false;
}

bool DeviceObject::HandlePumpRequest(const ProtocolMessage& /*message*/) {
    return false;
}

bool DeviceObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::GetAll:
        return EmitDecoded(message, &DeviceObject::receivedDeviceDetails, "HandleResponseAll",
                           ReadDeviceDetails);
    case Operation::Reset:
        emit receivedResetAck();
        return true;
    default:
        return false;
    }
}

} // namespace communication::objects
