#include "BenchSupport.h"

#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/ReceiveStream.h"

#include <benchmark/benchmark.h>

namespace halyard::protocol::bench {
namespace {

// The pump's value update, `state.range(0)` message bytes long: received bytes in, frame cut out
// and decoded, message parsed and handed to its object.
void BM_ReceivePath(benchmark::State& state) {
    const auto wireLength = static_cast<std::size_t>(state.range(0));
    TransportRig rig;
    const std::vector<std::uint8_t> frame = UpdateFrame(rig, wireLength);
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
