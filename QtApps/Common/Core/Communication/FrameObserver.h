#pragma once

#include <cstddef>
#include <cstdint>

namespace communication {

/// Hears of every message the link sends or receives (a session recording, for one). Called on
/// the comms thread, in line order, from the paths that move the frames: keep it quick.
class FrameObserver {
public:
    virtual ~FrameObserver() = default;

    /// A serialised message that went into the transmit queue.
    virtual void FrameSent(const std::uint8_t* message, std::size_t length) = 0;
    /// A received frame's message bytes, before the message layer handles them; a negative
    /// length for a frame that could not be decoded.
    virtual void FrameReceived(const std::uint8_t* message, std::int32_t length) = 0;
    /// The request log gave up waiting for the answer to the request with this id.
    virtual void RequestTimedOut(std::uint8_t id) = 0;

protected:
    FrameObserver() = default;
    FrameObserver(const FrameObserver&) = default;
    FrameObserver& operator=(const FrameObserver&) = default;
};

} // namespace communication
