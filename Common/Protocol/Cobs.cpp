#include "Cobs.h"

#include <cstring>

namespace halyard::protocol::cobs {
namespace {
constexpr std::uint8_t kFullBlockCode = 0xFF;
}

std::int32_t Encode(std::uint8_t* out, std::size_t capacity, const std::uint8_t* in,
                    std::size_t length) {
    if (capacity == 0) {
        return -1;
    }
    std::size_t codeIndex = 0;
    std::size_t position = 1;
    std::uint8_t code = 1;
    for (std::size_t i = 0; i < length; ++i) {
        if (in[i] != 0) {
            if (position >= capacity) {
                return -1;
            }
            out[position++] = in[i];
            ++code;
        }
        if (in[i] == 0 || code == kFullBlockCode) {
            if (position >= capacity) {
                return -1;
            }
            out[codeIndex] = code;
            codeIndex = position++;
            code = 1;
        }
    }
    out[codeIndex] = code;
    return static_cast<std::int32_t>(position);
}

std::int32_t Decode(std::uint8_t* out, std::size_t capacity, const std::uint8_t* in,
                    std::size_t length) {
    std::size_t read = 0;
    std::size_t written = 0;
    while (read < length) {
        const std::uint8_t code = in[read++];
        if (code == 0 || read + code - 1u > length) {
            return -1;
        }
        const std::size_t blockLength = code - 1u;
        if (capacity - written < blockLength || std::memchr(in + read, 0, blockLength) != nullptr) {
            return -1;
        }
        if (blockLength != 0) {
            std::memcpy(out + written, in + read, blockLength);
        }
        written += blockLength;
        read += blockLength;
        if (code < kFullBlockCode && read < length) {
            if (written >= capacity) {
                return -1;
            }
            out[written++] = 0;
        }
    }
    return static_cast<std::int32_t>(written);
}

} // namespace halyard::protocol::cobs
