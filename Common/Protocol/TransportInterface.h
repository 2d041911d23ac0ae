#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard::protocol {

/// Turns serialised messages into frames for the line and cuts frames out of received bytes.
class TransportInterface {
public:
    virtual ~TransportInterface() = default;

    /// Frames `length` message bytes into `out`. Returns the frame length, 0 for an empty message
    /// (nothing to send) or -1 when the frame does not fit.
    virtual std::int32_t Encode(std::uint8_t* out, std::size_t outCapacity,
                                const std::uint8_t* message, std::size_t length) = 0;
    /// Buffers received bytes; returns how many were taken. The rest are dropped unreported.
    virtual std::size_t DataIn(const std::uint8_t* data, std::size_t length) = 0;
    /// Takes the next complete frame out of the buffer and writes its message bytes to `out`.
    /// Returns their count, 0 when no complete frame is buffered, -1 for a malformed frame.
    /// Call until it returns 0.
    virtual std::int32_t Decode(std::uint8_t* out, std::size_t outCapacity) = 0;

protected:
    TransportInterface() = default;
    TransportInterface(const TransportInterface&) = default;
    TransportInterface& operator=(const TransportInterface&) = default;
};

} // namespace halyard::protocol
