#include "BenchSupport.h"

#include "Common/Protocol/MessageCodec.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace halyard::protocol::bench {
namespace {

/// A request whose wire form is `wireLength` bytes (header, and a payload when it is longer).
ProtocolMessage RequestOfWireLength(std::size_t wireLength) {
    ProtocolMessage request;
    request.id = 3;
    request.type = message::Type::Request;
    request.object = 0x10;
    request.instance = 0;
    request.attribute = 4;
    request.SetOperation(message::Operation::Update);
    if (wireLength > 8) {
        const std::vector<std::uint8_t> payload = SampleBytes(wireLength - 8);
        std::memcpy(request.payload.data(), payload.data(), payload.size());
        request.payloadLength = static_cast<std::uint16_t>(payload.size());
    }
    return request;
}

void BM_MessageSerialise(benchmark::State& state) {
    const ProtocolMessage request = RequestOfWireLength(static_cast<std::size_t>(state.range(0)));
    std::array<std::uint8_t, kBufferSize> out{};
    std::size_t length = 0;
    for (auto _ : state) {
        auto result = message::Serialise(request, out.data(), out.size(), length);
        benchmark::DoNotOptimize(result);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(length));
}
BENCHMARK(BM_MessageSerialise)->Arg(6)->Arg(64)->Arg(1288);

// Parses into a fresh message each time, as the receive path does.
void BM_MessageParse(benchmark::State& state) {
    const ProtocolMessage request = RequestOfWireLength(static_cast<std::size_t>(state.range(0)));
    std::array<std::uint8_t, kBufferSize> wire{};
    std::size_t length = 0;
    message::Serialise(request, wire.data(), wire.size(), length);
    for (auto _ : state) {
        ProtocolMessage parsed;
        auto result = message::Parse(wire.data(), length, parsed);
        benchmark::DoNotOptimize(result);
        benchmark::DoNotOptimize(parsed);
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(length));
}
BENCHMARK(BM_MessageParse)->Arg(6)->Arg(64)->Arg(1288);

} // namespace
} // namespace halyard::protocol::bench
