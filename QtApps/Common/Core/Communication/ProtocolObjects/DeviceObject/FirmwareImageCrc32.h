#pragma once

#include <QByteArrayView>

#include <cstdint>

namespace communication::objects {

/// CRC-32 of a firmware image as the firmware-update object's Start request carries it
/// (IEEE 802.3: reflected polynomial 0xEDB88320, initial value and final XOR 0xFFFFFFFF).
std::uint32_t FirmwareImageCrc32(QByteArrayView image);

} // namespace communication::objects
