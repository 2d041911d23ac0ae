#include "NetworkObject.h"

#include "ProxyLog.h"

namespace communication::objects {

using halyard::protocol::ByteOrder;
using halyard::protocol::PayloadReader;

namespace {

// The three addresses are the protocol's only big-endian fields.
bool ReadIpConfig(PayloadReader& reader, halyard::protocol::IpConfig& ipConfig) {
    uint8_t dhcpEnabled = 0;
    if (!reader.Read(dhcpEnabled) || !reader.Read(ipConfig.ipAddress, ByteOrder::BigEndian) ||
        !reader.Read(ipConfig.subnetMask, ByteOrder::BigEndian) ||
        !reader.Read(ipConfig.gateway, ByteOrder::BigEndian)) {
        BWL_LOG_READ_FAILURE("ReadIpConfig");
        return false;
    }
    ipConfig.dhcpEnabled = dhcpEnabled != 0;
    return true;
}

} // namespace

NetworkObject::NetworkObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

bool NetworkObject::GetAnybusModuleType() {
    return SendEmpty(AnybusModuleType, Operation::Get);
}
bool NetworkObject::GetAnybusVersion() {
    return SendEmpty(AnybusVersion, Operation::Get);
}
bool NetworkObject::GetMacAddress() {
    return SendEmpty(MacAddress, Operation::Get);
}
bool NetworkObject::GetIpConfig() {
    return SendEmpty(IpConfig, Operation::Get);
}
bool NetworkObject::ResetIpConfig() {
    return SendEmpty(IpConfig, Operation::Reset);
}
bool NetworkObject::ResetFileSystem() {
    return SendEmpty(FileSystem, Operation::Reset);
}

bool NetworkObject::SetIpSettings(const halyard::protocol::IpConfig& ipConfig, uint8_t extra) {
    Address(IpConfig, Operation::Set);
    halyard::protocol::PayloadWriter writer = Request().Writer();
    const bool complete = writer.Write(static_cast<uint8_t>(ipConfig.dhcpEnabled ? 1 : 0)) &&
                          writer.Write(ipConfig.ipAddress, ByteOrder::BigEndian) &&
                          writer.Write(ipConfig.subnetMask, ByteOrder::BigEndian) &&
                          writer.Write(ipConfig.gateway, ByteOrder::BigEndian) &&
                          writer.Write(extra);
    writer.Close();
    if (!complete) {
        BWL_LOG_WRITE_FAILURE("SetIpSettings");
        return false;
    }
    return SendRequest();
}

bool NetworkObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return SendSubscribe(attribute, perdiodMs, onChange);
}

bool NetworkObject::Unsubscribe(uint8_t attribute) {
    return SendUnsubscribe(attribute);
}

bool NetworkObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, &NetworkObject::getTimedOut, &NetworkObject::setTimedOut);
    // A time-out is also a refusal for this proxy's listeners.
    return HandleRefusal(message);
}

bool NetworkObject::HandleRefusal(const ProtocolMessage& message) {
    if (message.operation == Operation::Sub) {
        emit ackSubscribeResult(false, message.attribute);
    } else {
        emit ackUnhandledType(message.attribute);
    }
    return true;
}

bool NetworkObject::HandleUnknownType(const ProtocolMessage& message) {
    emit ackUnhandledType(message.attribute);
    return true;
}

bool NetworkObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        return HandleGetResponse(message);
    case Operation::Set:
        emit ackSet(message.attribute);
        return true;
    case Operation::Reset:
        emit ackReset(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(true, message.attribute);
        return true;
    case Operation::Unsub:
        return true;
    default:
        ReplyInvalidOperation(message);
        return true;
    }
}

bool NetworkObject::HandleGetResponse(const ProtocolMessage& message) {
    PayloadReader reader = message.Reader();
    switch (message.attribute) {
    case AnybusModuleType: {
        uint8_t moduleType = 0;
        if (!reader.Read(moduleType)) {
            BWL_LOG_READ_FAILURE("GetAnybusModuleHandler");
            return false;
        }
        emit getAnybusModuleResult(static_cast<halyard::protocol::AnybusModuleType>(moduleType));
        return true;
    }
    case AnybusVersion: {
        uint8_t major = 0;
        uint8_t minor = 0;
        uint8_t build = 0;
        if (!reader.Read(major) || !reader.Read(minor) || !reader.Read(build)) {
            BWL_LOG_READ_FAILURE("GetAnybusVersionHandler");
            return false;
        }
        emit getAnybusVersionResult(major, minor, build);
        return true;
    }
    case MacAddress: {
        halyard::protocol::MacAddress macAddress{};
        if (!reader.ReadBytes(macAddress.data(), macAddress.size())) {
            BWL_LOG_READ_FAILURE("GetMacAddressHandler");
            return false;
        }
        emit getMacAddressResult(macAddress);
        return true;
    }
    case IpConfig: {
        halyard::protocol::IpConfig ipConfig;
        if (!ReadIpConfig(reader, ipConfig)) {
            return false;
        }
        emit getIpConfigResult(ipConfig);
        return true;
    }
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

bool NetworkObject::HandleUpdate(const ProtocolMessage& message) {
    PayloadReader reader = message.Reader();
    switch (message.attribute) {
    case IpConfig: {
        halyard::protocol::IpConfig ipConfig;
        if (!ReadIpConfig(reader, ipConfig)) {
            ReplyInvalidMessageData(message);
            return true;
        }
        emit updateIpConfig(ipConfig);
        ReplySuccess(message);
        return true;
    }
    case LinkStatus: {
        uint8_t flags = 0;
        if (!reader.Read(flags)) {
            BWL_LOG_READ_FAILURE("UpdateLinkStatusHandler");
            ReplyInvalidMessageData(message);
            return true;
        }
        emit updateLinkStatus((flags & 0x01U) != 0, (flags & 0x02U) != 0, (flags & 0x04U) != 0,
                              (flags & 0x08U) != 0);
        ReplySuccess(message);
        return true;
    }
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
