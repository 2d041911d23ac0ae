#pragma once

#include <cstdint>

namespace communication::objects {

/// A speed range of the speed commander (or its limits): the input range mapped onto the speed
/// range, five u32, 20 bytes on the wire in field order.
struct QSpeedRangeProfile {
    std::uint32_t MinimumSpeedDrpm = 0;
    std::uint32_t MaximumSpeedDrpm = 0;
    std::uint32_t MinimumInput = 0;
    std::uint32_t MaximumInput = 0;
    std::uint32_t Hysteresis = 0;

    friend bool operator==(const QSpeedRangeProfile& a, const QSpeedRangeProfile& b) {
        return a.MinimumSpeedDrpm == b.MinimumSpeedDrpm &&
               a.MaximumSpeedDrpm == b.MaximumSpeedDrpm && a.MinimumInput == b.MinimumInput &&
               a.MaximumInput == b.MaximumInput && a.Hysteresis == b.Hysteresis;
    }
};

} // namespace communication::objects
