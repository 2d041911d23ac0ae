#include "BenchSupport.h"

#include "QtApps/Common/Core/Communication/LinkTap.h"

#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/ReceiveStream.h"

#include <benchmark/benchmark.h>

namespace halyard::protocol::bench {
namespace {

class NoTransmit final : public PayloadOutHandler {
public:
    bool PayloadOut(const std::uint8_t*, std::size_t) override { return true; }
};

// BM_ReceivePath with the link health's counting on the way, as the application's comms object
// does it: the read's bytes, each frame before the message layer, and the layer's verdict. No
// recording runs (the recorder is an observer that only a technician switches on).
void BM_ReceivePathCounted(benchmark::State& state) {
    const auto wireLength = static_cast<std::size_t>(state.range(0));
    TransportRig rig;
    const std::vector<std::uint8_t> frame = UpdateFrame(rig, wireLength);
    StillClock clock;
    ProtocolRequestLog log(100, clock);
    std::array<std::uint8_t, kBufferSize> transmit{};
    Protocol protocol(transmit.data(), transmit.size(), log);
    UpdateSink sink;
    protocol.RegisterMessageHandler(&sink);
    NoTransmit queue;
    communication::LinkTap tap(queue, protocol, clock);
    std::array<std::uint8_t, kBufferSize> decoded{};

    for (auto _ : state) {
        tap.BytesReceived(frame.size());
        ReceiveStream(rig.transport, frame.data(), frame.size(), decoded.data(), decoded.size(),
                      [&](std::int32_t decodedLength) {
                          tap.FrameReceived(decoded.data(), decodedLength);
                          const message::Status status =
                              protocol.ReceiveBytes(decoded.data(), decodedLength);
                          tap.FrameHandled(decodedLength, status);
                          benchmark::DoNotOptimize(status);
                      });
    }
    const std::uint64_t counted = tap.counters().TakeCounts().framesIn;
    if (sink.handled != state.iterations() ||
        counted != static_cast<std::uint64_t>(state.iterations())) {
        state.SkipWithError("not every frame was counted and handled");
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(frame.size()));
}
BENCHMARK(BM_ReceivePathCounted)->Arg(8)->Arg(64)->Arg(1288);

} // namespace
} // namespace halyard::protocol::bench
