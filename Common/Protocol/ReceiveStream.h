#pragma once

#include "TransportInterface.h"

#include <cstddef>
#include <cstdint>

namespace halyard::protocol {

/// Hands received bytes to `transport` in pieces that fit its receive buffer, taking every
/// complete frame out between pieces, so that a read larger than the buffer loses nothing.
/// Each decode result other than 0 goes to `onFrame(std::int32_t length)` in arrival order: the
/// message length, with the message in `frame`, or -1 for a malformed frame. For bytes that fit
/// at once this is the same as one DataIn followed by decoding until 0.
///
/// Returns the number of received bytes that could not be buffered: 0 with a transport that
/// always makes room (CobsTransport drops an unfinishable full buffer), so nothing is lost.
/// `OnFrame` is any callable; nothing here allocates.
template <typename OnFrame>
std::size_t ReceiveStream(TransportInterface& transport, const std::uint8_t* data,
                          std::size_t length, std::uint8_t* frame, std::size_t frameCapacity,
                          OnFrame&& onFrame) {
    std::size_t offset = 0;
    for (;;) {
        const std::size_t taken = transport.DataIn(data + offset, length - offset);
        offset += taken;
        bool decoded = false;
        for (std::int32_t result = transport.Decode(frame, frameCapacity); result != 0;
             result = transport.Decode(frame, frameCapacity)) {
            decoded = true;
            onFrame(result);
        }
        if (offset == length) {
            return 0;
        }
        // A full buffer that gave up no frame would refuse every later byte too.
        if (taken == 0 && !decoded) {
            return length - offset;
        }
    }
}

} // namespace halyard::protocol
