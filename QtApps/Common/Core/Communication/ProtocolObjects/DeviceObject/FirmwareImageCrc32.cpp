#include "FirmwareImageCrc32.h"

#include <array>

namespace communication::objects {

namespace {

constexpr std::array<std::uint32_t, 256> MakeTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t crc = i;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? (crc >> 1) ^ 0xEDB88320U : crc >> 1;
        }
        table[i] = crc;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> kTable = MakeTable();

} // namespace

std::uint32_t FirmwareImageCrc32(QByteArrayView image) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : image) {
        crc = kTable[(crc ^ static_cast<std::uint8_t>(byte)) & 0xFFU] ^ (crc >> 8);
    }
    return crc ^ 0xFFFFFFFFU;
}

} // namespace communication::objects
