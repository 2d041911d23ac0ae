#include "BenchSupport.h"

#include <benchmark/benchmark.h>

namespace halyard::protocol::bench {
namespace {

void BM_CobsEncode(benchmark::State& state) {
    const auto length = static_cast<std::size_t>(state.range(0));
    const std::vector<std::uint8_t> message = SampleBytes(length);
    TransportRig rig;
    std::array<std::uint8_t, kBufferSize> frame{};
    for (auto _ : state) {
        std::int32_t frameLength =
            rig.transport.Encode(frame.data(), frame.size(), message.data(), message.size());
        benchmark::DoNotOptimize(frameLength);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CobsEncode)->Arg(8)->Arg(64)->Arg(1280);

// One frame in through the receive buffer and out of the decoder, as each read from the port
// delivers it.
void BM_FrameDecode(benchmark::State& state) {
    const auto length = static_cast<std::size_t>(state.range(0));
    const std::vector<std::uint8_t> message = SampleBytes(length);
    TransportRig rig;
    const std::vector<std::uint8_t> frame = rig.Frame(message.data(), message.size());
    std::array<std::uint8_t, kBufferSize> out{};
    for (auto _ : state) {
        rig.transport.DataIn(frame.data(), frame.size());
        std::int32_t decoded = rig.transport.Decode(out.data(), out.size());
        if (decoded != state.range(0)) {
            state.SkipWithError("frame did not decode");
            break;
        }
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_FrameDecode)->Arg(8)->Arg(64)->Arg(1280);

} // namespace
} // namespace halyard::protocol::bench
