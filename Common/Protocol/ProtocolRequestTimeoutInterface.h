#pragma once

#include "ProtocolMessagingInterface.h"

#include <cstdint>

namespace halyard::protocol {

/// Turns requests that stay unanswered into time-out responses.
class ProtocolRequestTimeoutInterface {
public:
    virtual ~ProtocolRequestTimeoutInterface() = default;

    /// Hands a NakStatus with status RequestAckTimeout to `handler`'s Receive for every request
    /// older than the time-out. Meant to run every TimeoutInterval() milliseconds.
    virtual void CheckTimeouts(ProtocolMessagingInterface& handler) = 0;
    virtual std::uint32_t TimeoutInterval() const = 0;

protected:
    ProtocolRequestTimeoutInterface() = default;
    ProtocolRequestTimeoutInterface(const ProtocolRequestTimeoutInterface&) = default;
    ProtocolRequestTimeoutInterface& operator=(const ProtocolRequestTimeoutInterface&) = default;
};

} // namespace halyard::protocol
