#pragma once

#include "ProtocolInterface.h"
#include "ProtocolRequestLogInterface.h"

#include <array>

namespace halyard::protocol {

/// The message layer: serialises outgoing messages for the payload-out handler, parses received
/// frames, pairs responses with their requests through the request log and dispatches every
/// message to the handler registered for its object and instance. The link is symmetric: the
/// other side's requests reach the same handlers, and unknown objects or instances are refused
/// here with InvalidObject or InvalidInstance.
class Protocol final : public ProtocolInterface {
public:
    static constexpr std::size_t kMaxMessageHandlers = 20;

    /// `transmitBuffer` (owned by the caller) receives each serialised message.
    Protocol(std::uint8_t* transmitBuffer, std::size_t transmitBufferSize,
             ProtocolRequestLogInterface& requestLog);

    bool Send(ProtocolMessage& message) override;
    message::Status Receive(ProtocolMessage& message) override;
    void SetPayloadOutHandler(PayloadOutHandler* handler) override;
    /// A null handler or a 21st registration is a programming fault and raises the assertion.
    std::size_t RegisterMessageHandler(ProtocolMessageHandler* messageHandler) override;
    message::Status ReceiveBytes(const std::uint8_t* data, std::int32_t length) override;
    void ClearRequestLog() override;

    std::size_t MessageHandlerCount() const { return mHandlerCount; }

private:
    message::Status Dispatch(const ProtocolMessage& message);
    bool Transmit(const ProtocolMessage& message);

    ProtocolRequestLogInterface& mRequestLog;
    std::uint8_t* mTransmitBuffer;
    std::size_t mTransmitBufferSize;
    PayloadOutHandler* mPayloadOutHandler = nullptr;
    std::size_t mHandlerCount = 0;
    std::array<ProtocolMessageHandler*, kMaxMessageHandlers> mHandlers{};
};

} // namespace halyard::protocol
