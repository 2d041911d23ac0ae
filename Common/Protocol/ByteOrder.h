#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace halyard::protocol {

/// Fixed-width payload fields: integers, enumerations and IEEE floats, as their bit patterns.
template <typename T>
inline constexpr bool kIsPayloadField = std::is_arithmetic_v<T> || std::is_enum_v<T>;

template <typename T>
using FieldBits = std::conditional_t<
    sizeof(T) == 1, std::uint8_t,
    std::conditional_t<sizeof(T) == 2, std::uint16_t,
                       std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>>;

enum class ByteOrder { LittleEndian, BigEndian };

template <typename T>
void StoreField(std::uint8_t* out, T value, ByteOrder order) {
    static_assert(kIsPayloadField<T>, "payload fields are integers, enumerations or floats");
    FieldBits<T> bits{};
    std::memcpy(&bits, &value, sizeof(T));
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        const std::size_t at = order == ByteOrder::LittleEndian ? i : sizeof(T) - 1 - i;
        out[at] = static_cast<std::uint8_t>(bits >> (8 * i));
    }
}

template <typename T>
T LoadField(const std::uint8_t* in, ByteOrder order) {
    static_assert(kIsPayloadField<T>, "payload fields are integers, enumerations or floats");
    FieldBits<T> bits{};
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        const std::size_t at = order == ByteOrder::LittleEndian ? i : sizeof(T) - 1 - i;
        bits = static_cast<FieldBits<T>>(
            bits | static_cast<FieldBits<T>>(static_cast<FieldBits<T>>(in[at]) << (8 * i)));
    }
    T value{};
    std::memcpy(&value, &bits, sizeof(T));
    return value;
}

} // namespace halyard::protocol
