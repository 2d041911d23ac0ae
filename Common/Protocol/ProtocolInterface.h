#pragma once

#include "PayloadOutHandler.h"
#include "ProtocolMessageHandler.h"
#include "ProtocolMessagingInterface.h"

namespace halyard::protocol {

/// The message layer as its owner and the protocol objects see it.
class ProtocolInterface : public ProtocolMessagingInterface {
public:
    virtual void SetPayloadOutHandler(PayloadOutHandler* handler) = 0;
    /// Appends a handler; returns the new number of handlers. Handlers stay registered for the
    /// life of the message layer.
    virtual std::size_t RegisterMessageHandler(ProtocolMessageHandler* messageHandler) = 0;
    /// Parses one frame's message bytes and handles the message. A negative length (a frame that
    /// failed to decode) gives InvalidMessage.
    virtual message::Status ReceiveBytes(const std::uint8_t* data, std::int32_t length) = 0;
    virtual void ClearRequestLog() = 0;
};

} // namespace halyard::protocol
