#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard::protocol {

/// Sink for serialised messages: frames and queues them for the line.
class PayloadOutHandler {
public:
    virtual ~PayloadOutHandler() = default;
    /// True when the message was queued whole.
    virtual bool PayloadOut(const std::uint8_t* data, std::size_t length) = 0;

protected:
    PayloadOutHandler() = default;
    PayloadOutHandler(const PayloadOutHandler&) = default;
    PayloadOutHandler& operator=(const PayloadOutHandler&) = default;
};

} // namespace halyard::protocol
