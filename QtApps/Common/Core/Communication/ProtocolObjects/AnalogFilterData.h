#pragma once

#include <cstdint>

namespace communication::objects {

/// One sample of an analog input filter as the pump publishes it: four u32, 16 bytes, in field
/// order. The analog filter controller gives the values their meaning.
struct AnalogFilterData {
    std::uint32_t input = 0;
    std::uint32_t output = 0;
    std::uint32_t inputVariance = 0;
    std::uint32_t outputVariance = 0;
};

} // namespace communication::objects
