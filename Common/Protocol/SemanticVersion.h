#pragma once

#include <cstdint>

namespace halyard {

struct SemanticVersion {
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::uint8_t patch = 0;

    friend bool operator==(const SemanticVersion& a, const SemanticVersion& b) {
        return a.major == b.major && a.minor == b.minor && a.patch == b.patch;
    }
    friend bool operator!=(const SemanticVersion& a, const SemanticVersion& b) { return !(a == b); }
};

} // namespace halyard
