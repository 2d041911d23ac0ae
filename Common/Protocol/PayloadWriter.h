#pragma once

#include "ByteOrder.h"

namespace halyard::protocol {

struct ProtocolMessage;

/// Write cursor over a message's payload. A write either puts the whole field in and advances or
/// fails and changes nothing; Close stores the written length as the payload length.
class PayloadWriter {
public:
    explicit PayloadWriter(ProtocolMessage& message);

    std::size_t Position() const { return mPosition; }
    std::size_t Free() const { return mCapacity - mPosition; }

    template <typename T>
    bool Write(T value, ByteOrder order = ByteOrder::LittleEndian) {
        if (Free() < sizeof(T)) {
            return false;
        }
        StoreField(mData + mPosition, value, order);
        mPosition += sizeof(T);
        return true;
    }

    bool WriteBytes(const std::uint8_t* data, std::size_t length);

    /// Writes `text` and its NUL, cut to `capacity` bytes including the NUL.
    bool WriteString(const char* text, std::size_t capacity);

    void Close();

private:
    ProtocolMessage& mMessage;
    std::uint8_t* mData;
    std::size_t mCapacity;
    std::size_t mPosition = 0;
};

} // namespace halyard::protocol
