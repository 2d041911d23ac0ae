#pragma once

#include "Common/Protocol/PayloadReader.h"

#include <array>
#include <cstdint>
#include <type_traits>

namespace communication::objects {

/// Reads one value in the wire form the proxies' payloads give it: a bool is one byte (non-zero
/// is true), an enumeration its underlying integer, a byte array its raw bytes, a number itself,
/// little-endian.
template <typename T>
bool ReadField(halyard::protocol::PayloadReader& reader, T& value) {
    if constexpr (std::is_same_v<T, bool>) {
        uint8_t byte = 0;
        if (!reader.Read(byte)) {
            return false;
        }
        value = byte != 0;
        return true;
    } else if constexpr (std::is_enum_v<T>) {
        std::underlying_type_t<T> raw{};
        if (!reader.Read(raw)) {
            return false;
        }
        value = static_cast<T>(raw);
        return true;
    } else {
        return reader.Read(value);
    }
}

template <std::size_t Size>
bool ReadField(halyard::protocol::PayloadReader& reader, std::array<uint8_t, Size>& bytes) {
    return reader.ReadBytes(bytes.data(), bytes.size());
}

/// The standard decoding of a signal's arguments: each read in turn by ReadField.
struct ReadFieldsInOrder {
    template <typename... T>
    bool operator()(halyard::protocol::PayloadReader& reader, T&... values) const {
        return (ReadField(reader, values) && ...);
    }
};

} // namespace communication::objects
