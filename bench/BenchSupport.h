#pragma once

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/ProtocolMessage.h"
#include "Common/Protocol/ProtocolMessageHandler.h"
#include "Common/Protocol/SystemInterface.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstring>
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

/// A clock that never moves: nothing times out.
class StillClock final : public device::SystemInterface {
public:
    std::uint64_t ElapsedMilliseconds() const override { return 0; }
    void Delay(std::uint32_t) override {}
    void DebugPrint(const char*) override {}
};

/// Takes each value update and reads its first field, as a protocol object would.
class UpdateSink final : public ProtocolMessageHandler {
public:
    UpdateSink() : ProtocolMessageHandler(0x10, 0) {}
    bool Handle(const ProtocolMessage& message) override {
        std::uint32_t value = 0;
        const bool read = message.Reader().Read(value);
        benchmark::DoNotOptimize(value);
        ++handled;
        return read;
    }
    benchmark::IterationCount handled = 0;
};

/// The frame of a value update `wireLength` message bytes long, for object 0x10.
inline std::vector<std::uint8_t> UpdateFrame(TransportRig& rig, std::size_t wireLength) {
    ProtocolMessage update;
    update.type = message::Type::Request;
    update.object = 0x10;
    update.SetOperation(message::Operation::Update);
    const std::vector<std::uint8_t> payload = SampleBytes(wireLength - 8);
    std::memcpy(update.payload.data(), payload.data(), payload.size());
    update.payloadLength = static_cast<std::uint16_t>(payload.size());
    std::array<std::uint8_t, kBufferSize> wire{};
    std::size_t length = 0;
    message::Serialise(update, wire.data(), wire.size(), length);
    return rig.Frame(wire.data(), length);
}

} // namespace halyard::protocol::bench
