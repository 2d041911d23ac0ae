#include "NetworkObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

using halyard::protocol::ByteOrder;
using halyard::protocol::PayloadReader;

namespace {

// Time-outs and accepted answers follow the common pattern; refusals are this proxy's own
// (HandleRefusal), which its time-outs raise as well.
constexpr AnswerSignals<NetworkObject> kAnswers{
    &NetworkObject::getTimedOut, // get time-out
    &NetworkObject::setTimedOut, // set time-out
    &NetworkObject::ackSet,      // set accepted
};

// The three addresses are the protocol's only big-endian fields. Read failures are logged as
// "ReadIpConfig", for the get and the update alike.
bool ReadIpConfig(PayloadReader& reader, halyard::protocol::IpConfig& ipConfig) {
    uint8_t dhcpEnabled = 0;
    if (!reader.Read(dhcpEnabled) || !reader.Read(ipConfig.ipAddress, ByteOrder::BigEndian) ||
        !reader.Read(ipConfig.subnetMask, ByteOrder::BigEndian) ||
        !reader.Read(ipConfig.gateway, ByteOrder::BigEndian)) {
        return false;
    }
    ipConfig.dhcpEnabled = dhcpEnabled != 0;
    return true;
}

// One byte of flags: bit 0 link, bits 1 and 2 the two ports, bit 3 IP established.
bool ReadLinkStatus(PayloadReader& reader, bool& linkConnected, bool& port1Connected,
                    bool& port2Connected, bool& ipEstablished) {
    uint8_t flags = 0;
    if (!reader.Read(flags)) {
        return false;
    }
    linkConnected = (flags & 0x01U) != 0;
    port1Connected = (flags & 0x02U) != 0;
    port2Connected = (flags & 0x04U) != 0;
    ipEstablished = (flags & 0x08U) != 0;
    return true;
}

} // namespace

NetworkObject::NetworkObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

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
        LogWriteFailure("SetIpSettings");
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
    RaiseTimeoutSignal(*this, message, kAnswers);
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

// Answers to operations this proxy never sends are answered InvalidOperation.
bool NetworkObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
    case Operation::Set:
    case Operation::Sub:
        return AnswerResponse(*this, message, kAnswers, &NetworkObject::HandleGetResponse);
    case Operation::Reset:
        emit ackReset(message.attribute);
        return true;
    case Operation::Unsub:
        return true;
    default:
        ReplyInvalidOperation(message);
        return true;
    }
}

bool NetworkObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case AnybusModuleType:
        return EmitDecoded(message, &NetworkObject::getAnybusModuleResult,
                           "GetAnybusModuleHandler");
    case AnybusVersion:
        return EmitDecoded(message, &NetworkObject::getAnybusVersionResult,
                           "GetAnybusVersionHandler");
    case MacAddress:
        return EmitDecoded(message, &NetworkObject::getMacAddressResult, "GetMacAddressHandler");
    case IpConfig:
        return EmitDecoded(message, &NetworkObject::getIpConfigResult, "ReadIpConfig",
                           ReadIpConfig);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

bool NetworkObject::HandleUpdate(const ProtocolMessage& message) {
    switch (message.attribute) {
    case IpConfig:
        return AnswerUpdate(message, &NetworkObject::updateIpConfig, "ReadIpConfig", ReadIpConfig);
    case LinkStatus:
        return AnswerUpdate(message, &NetworkObject::updateLinkStatus, "UpdateLinkStatusHandler",
                            ReadLinkStatus);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
