// COBS in both directions. Arbitrary bytes taken as a frame body either decode within the
// output given or are refused, never written past it; taken as a message they leave as a frame
// with no zero in its body and come back through the receive buffer unchanged.

#include "FuzzCheck.h"

#include "Common/Protocol/Cobs.h"
#include "Common/Protocol/CobsTransport.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

using namespace halyard::protocol;

namespace {

// Longer than any frame the link carries; keeps each run fast.
constexpr std::size_t kMaxMessage = 3000;
constexpr std::size_t kRingSize = 4096;

void DecodeArbitraryBody(const std::uint8_t* data, std::size_t size) {
    // An output exactly as large as chosen, so that the address sanitizer sees any overrun.
    const std::size_t capacity = size == 0 ? 0 : (data[0] * (size + 1)) / 255;
    std::vector<std::uint8_t> out(capacity);
    const std::int32_t length = cobs::Decode(out.data(), capacity, data, size);
    FUZZ_CHECK(length >= -1);
    FUZZ_CHECK(length <= static_cast<std::int64_t>(capacity));
    FUZZ_CHECK(length <= static_cast<std::int64_t>(size));
    if (length <= 0) {
        return;
    }
    // What decodes re-encodes to a body that decodes to the same bytes.
    const auto decodedLength = static_cast<std::size_t>(length);
    std::vector<std::uint8_t> body(cobs::MaxEncodedLength(decodedLength));
    const std::int32_t bodyLength =
        cobs::Encode(body.data(), body.size(), out.data(), decodedLength);
    FUZZ_CHECK(bodyLength > 0);
    std::vector<std::uint8_t> again(decodedLength);
    FUZZ_CHECK(cobs::Decode(again.data(), again.size(), body.data(),
                            static_cast<std::size_t>(bodyLength)) == length);
    FUZZ_CHECK(std::equal(again.begin(), again.end(), out.begin()));
}

void RoundTripMessage(const std::uint8_t* message, std::size_t length) {
    std::vector<std::uint8_t> ring(kRingSize);
    std::vector<std::uint8_t> scratch(kRingSize);
    CobsTransport transport(ring.data(), ring.size(), scratch.data(), scratch.size());

    const std::size_t needed = std::max(length + 4, cobs::MaxEncodedLength(length) + 2);
    std::vector<std::uint8_t> frame(needed);
    const std::int32_t frameLength = transport.Encode(frame.data(), frame.size(), message, length);
    if (length == 0) {
        FUZZ_CHECK(frameLength == 0);
        return;
    }
    FUZZ_CHECK(frameLength > 2);
    const auto frameSize = static_cast<std::size_t>(frameLength);
    FUZZ_CHECK(frameSize <= cobs::MaxEncodedLength(length) + 2);
    FUZZ_CHECK(std::memchr(frame.data(), 0, frameSize - 1) == nullptr);
    FUZZ_CHECK(frame[frameSize - 2] == 0x01 && frame[frameSize - 1] == 0x00);

    // One byte short: refused, and nothing written past the end.
    std::vector<std::uint8_t> cramped(frameSize - 1);
    FUZZ_CHECK(transport.Encode(cramped.data(), cramped.size(), message, length) == -1);

    // Through the receive buffer in two reads, split where the message says.
    const std::uint8_t delimiter = 0;
    FUZZ_CHECK(transport.DataIn(&delimiter, 1) == 1);
    const std::size_t split = message[0] % frameSize;
    FUZZ_CHECK(transport.DataIn(frame.data(), split) == split);
    std::vector<std::uint8_t> out(length);
    FUZZ_CHECK(transport.Decode(out.data(), out.size()) == 0);
    FUZZ_CHECK(transport.DataIn(frame.data() + split, frameSize - split) == frameSize - split);
    FUZZ_CHECK(transport.Decode(out.data(), out.size()) == static_cast<std::int32_t>(length));
    FUZZ_CHECK(std::memcmp(out.data(), message, length) == 0);
    FUZZ_CHECK(transport.Decode(out.data(), out.size()) == 0);
    FUZZ_CHECK(transport.BufferedBytes() == 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::size_t length = std::min(size, kMaxMessage);
    DecodeArbitraryBody(data, length);
    RoundTripMessage(data, length);
    return 0;
}
