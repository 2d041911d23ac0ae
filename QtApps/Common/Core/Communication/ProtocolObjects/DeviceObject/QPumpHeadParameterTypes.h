#pragma once

#include <QString>

#include <cstdint>

namespace communication::objects {

/// One row of the pump's list of pump-head types: a name of at most 11 bytes (12 with its NUL
/// on the wire), then a u32 and two u8 whose meaning is the pump's.
struct QPumpHeadParameterTypes {
    static constexpr std::size_t kNameCapacity = 12;

    QString name;
    std::uint32_t value = 0;
    std::uint8_t parameterA = 0;
    std::uint8_t parameterB = 0;

    friend bool operator==(const QPumpHeadParameterTypes& a, const QPumpHeadParameterTypes& b) {
        return a.name == b.name && a.value == b.value && a.parameterA == b.parameterA &&
               a.parameterB == b.parameterB;
    }
};

} // namespace communication::objects
