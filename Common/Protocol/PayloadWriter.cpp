#include "PayloadWriter.h"

#include "ProtocolMessage.h"

namespace halyard::protocol {

PayloadWriter::PayloadWriter(ProtocolMessage& message)
    : mMessage(message)
    , mData(message.payload.data())
    , mCapacity(message.payload.size()) {}

bool PayloadWriter::WriteBytes(const std::uint8_t* data, std::size_t length) {
    if (Free() < length) {
        return false;
    }
    std::memcpy(mData + mPosition, data, length);
    mPosition += length;
    return true;
}

bool PayloadWriter::WriteString(const char* text, std::size_t capacity) {
    if (capacity == 0) {
        return false;
    }
    std::size_t length = 0;
    while (length + 1 < capacity && text[length] != '\0') {
        ++length;
    }
    if (Free() < length + 1) {
        return false;
    }
    std::memcpy(mData + mPosition, text, length);
    mData[mPosition + length] = 0;
    mPosition += length + 1;
    return true;
}

void PayloadWriter::Close() {
    mMessage.payloadLength = static_cast<std::uint16_t>(mPosition);
}

} // namespace halyard::protocol
