#include "PayloadReader.h"

namespace halyard::protocol {

bool PayloadReader::ReadBytes(std::uint8_t* out, std::size_t length) {
    if (Remaining() < length) {
        return false;
    }
    std::memcpy(out, mData + mPosition, length);
    mPosition += length;
    return true;
}

bool PayloadReader::ReadString(char* out, std::size_t capacity) {
    for (std::size_t i = 0; i < capacity && i < Remaining(); ++i) {
        const auto byte = static_cast<char>(mData[mPosition + i]);
        out[i] = byte;
        if (byte == '\0') {
            mPosition += i + 1;
            return true;
        }
    }
    return false;
}

} // namespace halyard::protocol
