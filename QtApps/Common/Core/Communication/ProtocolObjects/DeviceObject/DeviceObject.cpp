#include "DeviceObject.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProxyLog.h"

namespace communication::objects {

DeviceObject::DeviceObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

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
        return HandleResponseAll(message);
    case Operation::Reset:
        emit receivedResetAck();
        return true;
    default:
        return false;
    }
}

bool DeviceObject::HandleResponseAll(const ProtocolMessage& message) {
    halyard::protocol::PayloadReader reader = message.Reader();
    DeviceDetails details;
    if (!reader.Read(details.deviceType) || !reader.Read(details.appVersion.major) ||
        !reader.Read(details.appVersion.minor) || !reader.Read(details.appVersion.patch)) {
        BWL_LOG_READ_FAILURE("HandleResponseAll");
        return false;
    }
    emit receivedDeviceDetails(details);
    return true;
}

} // namespace communication::objects
