#include "Protocol.h"
#include "Assert.h"
#include "MessageCodec.h"

namespace halyard::protocol {

using message::Status;
using message::Type;

Protocol::Protocol(std::uint8_t* transmitBuffer, std::size_t transmitBufferSize,
                   ProtocolRequestLogInterface& requestLog)
    : mRequestLog(requestLog)
    , mTransmitBuffer(transmitBuffer)
    , mTransmitBufferSize(transmitBufferSize) {}

void Protocol::SetPayloadOutHandler(PayloadOutHandler* handler) {
    mPayloadOutHandler = handler;
}

void Protocol::ClearRequestLog() {
    mRequestLog.ClearAll();
}

// The two assertion texts name this file and the line of each check, and callers (and tests)
// match them to the letter: keep both checks on the lines where they stand.
std::size_t Protocol::RegisterMessageHandler(ProtocolMessageHandler* messageHandler) {
    HALYARD_ASSERT(messageHandler != nullptr);

    const bool spaceAvailableForNewMessageHandler = mHandlerCount < kMaxMessageHandlers;

    HALYARD_ASSERT(spaceAvailableForNewMessageHandler);

    mHandlers[mHandlerCount++] = messageHandler;
    return mHandlerCount;
}

bool Protocol::Send(ProtocolMessage& message) {
    if (message.type == Type::Request && mRequestLog.AddRequestHeader(message) != kRequestLogged) {
        return false;
    }
    return Transmit(message);
}

bool Protocol::Transmit(const ProtocolMessage& message) {
    std::size_t length = 0;
    if (message::Serialise(message, mTransmitBuffer, mTransmitBufferSize, length) !=
        message::SerialiseResult::Ok) {
        return false;
    }
    return mPayloadOutHandler != nullptr && mPayloadOutHandler->PayloadOut(mTransmitBuffer, length);
}

Status Protocol::Receive(ProtocolMessage& message) {
    switch (message.type) {
    case Type::Request: {
        const Status status = Dispatch(message);
        if (status == Status::InvalidObject || status == Status::InvalidInstance) {
            message.type = Type::NakStatus;
            message.SetStatus(status);
            message.payloadLength = 0;
            Transmit(message);
        }
        return status;
    }
    case Type::AckStatus:
    case Type::NakStatus:
        if (mRequestLog.MatchResponse(message)) {
            return Status::InvalidMessageId;
        }
        return Dispatch(message);
    case Type::Nak:
        mRequestLog.Release(message.id);
        return Status::NakReceived;
    default:
        return Status::NakReceived;
    }
}

Status Protocol::Dispatch(const ProtocolMessage& message) {
    bool objectKnown = false;
    for (std::size_t i = 0; i < mHandlerCount; ++i) {
        ProtocolMessageHandler* handler = mHandlers[i];
        if (handler->ObjectId() != message.object) {
            continue;
        }
        objectKnown = true;
        if (handler->Instance() == message.instance) {
            return handler->Handle(message) ? Status::Success : Status::Failed;
        }
    }
    return objectKnown ? Status::InvalidInstance : Status::InvalidObject;
}

Status Protocol::ReceiveBytes(const std::uint8_t* data, std::int32_t length) {
    ProtocolMessage message;
    if (length < 0 || message::Parse(data, static_cast<std::size_t>(length), message) !=
                          message::ParseResult::Ok) {
        return Status::InvalidMessage;
    }
    return Receive(message);
}

} // namespace halyard::protocol
