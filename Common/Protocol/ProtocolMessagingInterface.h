#pragma once

#include "ProtocolMessage.h"

namespace halyard::protocol {

/// Sending and receiving single messages.
class ProtocolMessagingInterface {
public:
    virtual ~ProtocolMessagingInterface() = default;

    /// Sends one message; a request first gets its id from the request log. Returns whether the
    /// message was queued. The message may be reused as soon as this returns.
    virtual bool Send(ProtocolMessage& message) = 0;
    /// Handles one parsed message: matches responses to their requests and dispatches to the
    /// handler of the message's object and instance.
    virtual message::Status Receive(ProtocolMessage& message) = 0;

protected:
    ProtocolMessagingInterface() = default;
    ProtocolMessagingInterface(const ProtocolMessagingInterface&) = default;
    ProtocolMessagingInterface& operator=(const ProtocolMessagingInterface&) = default;
};

} // namespace halyard::protocol
