#pragma once

#include <cstdint>

namespace halyard::encoder {

/// The motor encoder's readout, 12 bytes on the wire in field order (two u32, four u8).
struct EncoderData {
    std::uint32_t count = 0;       ///< raw position count
    std::uint32_t revolutions = 0; ///< whole revolutions counted
    std::uint8_t status = 0;
    std::uint8_t warnings = 0;
    std::uint8_t errors = 0;
    std::uint8_t fieldStrength = 0;

    static constexpr std::size_t kWireSize = 12;
};

} // namespace halyard::encoder
