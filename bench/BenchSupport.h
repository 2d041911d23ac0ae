#pragma once

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/ProtocolMessage.h"

#include <array>
#include <cstdint>
#include <vector>

namespace halyard::protocol::bench {

inline constexpr std::size_t kBufferSize = 2048;

/// Message-like bytes: mostly non-zero with a zero every so often, as in real payloads of
/// small integers and floats.
inline std::vector<std::uint8_t> SampleBytes(std::size_t length) {
    std::vector<std::uint8_t> bytes(length);
    std::uint32_t state = 12345;
    for (std::size_t i = 0; i < length; ++i) {
        state = state * 1103515245u + 12345u;
        bytes[i] = (state >> 28) == 0 ? 0 : static_cast<std::uint8_t>(state >> 16);
    }
    return bytes;
}

/// The transport with the comms object's buffers, primed with the opening delimiter.
struct TransportRig {
    TransportRig() {
        const std::uint8_t delimiter = 0;
        transport.DataIn(&delimiter, 1);
    }

    std::vector<std::uint8_t> Frame(const std::uint8_t* message, std::size_t length) {
        std::vector<std::uint8_t> frame(length + length / 254 + 8);
        const std::int32_t frameLength =
            transport.Encode(frame.data(), frame.size(), message, length);
        frame.resize(frameLength > 0 ? static_cast<std::size_t>(frameLength) : 0);
        return frame;
    }

    std::array<std::uint8_t, kBufferSize> ring{};
    std::array<std::uint8_t, kBufferSize> scratch{};
    CobsTransport transport{ring.data(), ring.size(), scratch.data(), scratch.size()};
};

} // namespace halyard::protocol::bench
