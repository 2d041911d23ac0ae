#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard::protocol::cobs {

/// Largest COBS body that `length` message bytes can become: one code byte per 254 bytes and
/// one for the closing block.
constexpr std::size_t MaxEncodedLength(std::size_t length) {
    return length + length / 254 + 1;
}

/// Standard COBS. Writes the encoding of `length` bytes to `out`; returns the encoded length, or
/// -1 when it does not fit in `capacity`. A full 254-byte block is closed at once, so a message
/// ending in such a block gets a last code byte 0x01.
std::int32_t Encode(std::uint8_t* out, std::size_t capacity, const std::uint8_t* in,
                    std::size_t length);

/// Strict COBS decoding of a body that holds no delimiter: a zero code, a zero data byte, a
/// block running past the body or output overflow give -1; else the decoded length.
std::int32_t Decode(std::uint8_t* out, std::size_t capacity, const std::uint8_t* in,
                    std::size_t length);

} // namespace halyard::protocol::cobs
