#include "BenchSupport.h"

#include "Common/Protocol/MessageCodec.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/ReceiveStream.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace halyard::protocol::bench {
namespace {

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

// The pump's value update, `state.range(0)` message bytes long: received bytes in, frame cut out
// and decoded, message parsed and handed to its object.
void BM_ReceivePath(benchmark::State& state) {
    const auto wireLength = static_cast<std::size_t>(state.range(0));
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

    TransportRig rig;
    const std::vector<std::uint8_t> frame = rig.Frame(wire.data(), length);
    StillClock clock;
    ProtocolRequestLog log(100, clock);
    std::array<std::uint8_t, kBufferSize> transmit{};
    Protocol protocol(transmit.data(), transmit.size(), log);
    UpdateSink sink;
    protocol.RegisterMessageHandler(&sink);
    std::array<std::uint8_t, kBufferSize> decoded{};

    for (auto _ : state) {
        ReceiveStream(rig.transport, frame.data(), frame.size(), decoded.data(), decoded.size(),
                      [&](std::int32_t decodedLength) {
                          benchmark::DoNotOptimize(
                              protocol.ReceiveBytes(decoded.data(), decodedLength));
                      });
    }
    if (sink.handled != state.iterations()) {
        state.SkipWithError("not every frame reached its handler");
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(frame.size()));
}
BENCHMARK(BM_ReceivePath)->Arg(8)->Arg(64)->Arg(1288);

} // namespace
} // namespace halyard::protocol::bench
