#pragma once

#include "ByteOrder.h"

namespace halyard::protocol {

/// Read cursor over a received payload. Every read either takes the whole field and advances,
/// or fails and leaves the cursor where it was.
class PayloadReader {
public:
    PayloadReader(const std::uint8_t* data, std::size_t length) : mData(data), mLength(length) {}

    std::size_t Position() const { return mPosition; }
    std::size_t Remaining() const { return mLength - mPosition; }

    template <typename T>
    bool Read(T& value, ByteOrder order = ByteOrder::LittleEndian) {
        if (Remaining() < sizeof(T)) {
            return false;
        }
        value = LoadField<T>(mData + mPosition, order);
        mPosition += sizeof(T);
        return true;
    }

    bool ReadBytes(std::uint8_t* out, std::size_t length);

    /// Reads a NUL-terminated string of at most `capacity` bytes including the NUL into `out`.
    /// Fails when no NUL arrives within `capacity` bytes or within the payload.
    bool ReadString(char* out, std::size_t capacity);

private:
    const std::uint8_t* mData;
    std::size_t mLength;
    std::size_t mPosition = 0;
};

} // namespace halyard::protocol
