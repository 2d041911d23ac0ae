#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

/// The conversions between the types of the pump's wire fields, as the proxies carry them, and
/// the types the values give the screens. The value wiring hands arguments on only through
/// exact(), so a difference in sign, width or unit between the two sides fails to compile until
/// the value names one of these.
namespace communication::wire {

/// Hands a value on unchanged; compiles only when both sides use the same type.
template <typename To, typename From>
constexpr const To& exact(const From& value) {
    static_assert(std::is_same_v<To, From>,
                  "the proxy and the value use different types: convert with a named function");
    return value;
}

/// The conversion of arguments that need none.
struct Unchanged {
    template <typename T>
    constexpr const T& operator()(const T& value) const {
        return value;
    }
};

/// The number by which the pump names a member of one of its enumerations.
template <typename Enum>
constexpr std::underlying_type_t<Enum> codeOf(Enum member) {
    return static_cast<std::underlying_type_t<Enum>>(member);
}

/// The pump's flag bytes: any value but 0 means true.
constexpr bool flagFromWire(std::uint8_t byte) {
    return byte != 0;
}
constexpr std::uint8_t flagToWire(bool flag) {
    return flag ? 1 : 0;
}

/// A signed 32-bit field that its proxy carries as four raw bytes (the application speed, whose
/// sign is the direction): the bytes are a two's complement number.
constexpr std::int32_t signedFromWire(std::uint32_t raw) {
    return raw <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())
               ? static_cast<std::int32_t>(raw)
               : -static_cast<std::int32_t>(~raw) - 1;
}
constexpr std::uint32_t signedToWire(std::int32_t value) {
    return value >= 0 ? static_cast<std::uint32_t>(value)
                      : ~static_cast<std::uint32_t>(-(value + 1));
}

/// A change of width or signedness that keeps every value the target can hold and clamps the
/// others to the nearest end of its range, so that an impossible count or speed is never
/// wrapped into a plausible one.
template <typename To, typename From>
constexpr To clamped(From value) {
    static_assert(std::is_integral_v<To> && std::is_integral_v<From>);
    using Low = std::numeric_limits<To>;
    if constexpr (std::is_signed_v<From> && !std::is_signed_v<To>) {
        if (value < 0) {
            return 0;
        }
    } else if constexpr (std::is_signed_v<From> && std::is_signed_v<To>) {
        if (value < Low::min()) {
            return Low::min();
        }
    }
    if (value > 0 && static_cast<std::make_unsigned_t<From>>(value) >
                         static_cast<std::make_unsigned_t<To>>(Low::max())) {
        return Low::max();
    }
    return static_cast<To>(value);
}

/// A measured quantity written to an unsigned integer field (a hysteresis): truncated toward
/// zero; negative values and NaN give 0, values past the field's range its maximum.
constexpr std::uint32_t truncatedToWire(float value) {
    if (!(value > 0.0F)) {
        return 0;
    }
    if (value >= 4294967296.0F) {
        return std::numeric_limits<std::uint32_t>::max();
    }
    return static_cast<std::uint32_t>(value);
}

} // namespace communication::wire
