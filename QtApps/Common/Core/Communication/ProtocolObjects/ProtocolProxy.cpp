#include "ProtocolProxy.h"

namespace communication::objects {

using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

MessageKind Classify(const ProtocolMessage& message) {
    switch (message.type) {
    case Type::NakStatus:
        return message.status == Status::RequestAckTimeout ? MessageKind::Timeout
                                                           : MessageKind::Refusal;
    case Type::AckStatus:
        return MessageKind::Response;
    case Type::Nak:
        return MessageKind::Refusal;
    case Type::Request:
        return MessageKind::PumpRequest;
    default:
        return MessageKind::Unknown;
    }
}

ProtocolProxy::ProtocolProxy(halyard::protocol::ProtocolInterface& protocol, uint8_t objectId,
                             uint8_t instance)
    : ProtocolBaseObject(protocol)
    , ProtocolMessageHandler(objectId, instance) {
    mRequest.type = Type::Request;
    mRequest.object = objectId;
    mRequest.instance = instance;
}

bool ProtocolProxy::Handle(const ProtocolMessage& message) {
    switch (Classify(message)) {
    case MessageKind::Timeout:
        return HandleTimeout(message);
    case MessageKind::Response:
        return HandleResponse(message);
    case MessageKind::Refusal:
        return HandleRefusal(message);
    case MessageKind::PumpRequest:
        return HandlePumpRequest(message);
    case MessageKind::Unknown:
        break;
    }
    return HandleUnknownType(message);
}

bool ProtocolProxy::HandlePumpRequest(const ProtocolMessage& message) {
    if (message.operation != Operation::Update) {
        ReplyInvalidOperation(message);
        return true;
    }
    return HandleUpdate(message);
}

bool ProtocolProxy::HandleUpdate(const ProtocolMessage& message) {
    ReplyInvalidAttribute(message);
    return true;
}

bool ProtocolProxy::HandleUnknownType(const ProtocolMessage& /*message*/) {
    return false;
}

void ProtocolProxy::Address(uint8_t attribute, Operation operation) {
    mRequest.attribute = attribute;
    mRequest.SetOperation(operation);
}

bool ProtocolProxy::SendEmpty(uint8_t attribute, Operation operation) {
    Address(attribute, operation);
    mRequest.payloadLength = 0;
    return SendRequest();
}

bool ProtocolProxy::SendSubscribe(uint8_t attribute, uint16_t periodMs, bool onChange) {
    return SendCompleteFields("Subscribe", attribute, Operation::Sub, periodMs,
                              static_cast<uint8_t>(onChange ? 1 : 0));
}

bool ProtocolProxy::SendUnsubscribe(uint8_t attribute) {
    return SendEmpty(attribute, Operation::Unsub);
}

void ProtocolProxy::LogReadFailure(const LogSite& site) const {
    logger::write(logger::Level::Warn, site, QStringLiteral("Protocol message data read failure"));
}

void ProtocolProxy::LogWriteFailure(const LogSite& site) const {
    logger::write(logger::Level::Warn, site, QStringLiteral("Protocol message data write failure"));
}

} // namespace communication::objects
