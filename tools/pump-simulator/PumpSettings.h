#pragma once

#include <array>
#include <cstdint>

namespace simulator {

struct SpeedRangeProfile {
    std::uint32_t minimumSpeedDrpm = 0;
    std::uint32_t maximumSpeedDrpm = 0;
    std::uint32_t minimumInput = 0;
    std::uint32_t maximumInput = 0;
    std::uint32_t hysteresis = 0;

    /// Whether this profile lies within `limits` (a limits profile bounds the speeds, the inputs
    /// and the hysteresis from above) and is ordered.
    bool fitsWithin(const SpeedRangeProfile& limits) const;
};

struct Calibration {
    float slope = 1.0F;
    float offset = 0.0F;
};

struct IpConfig {
    bool dhcpEnabled = false;
    std::uint32_t address = 0; // host order
    std::uint32_t subnetMask = 0;
    std::uint32_t gateway = 0;
};

/// Which analog speed input a speed range belongs to.
enum class SpeedInput : std::uint8_t { Current = 0, Voltage = 1, Frequency = 2 };
inline constexpr std::size_t kSpeedInputCount = 3;

/// What the pump keeps in its non-volatile memory, with the defaults that a reset of that
/// memory restores.
struct PumpSettings {
    std::uint8_t controlInput = 5; // application
    bool applicationSpeedEnable = true;
    std::uint32_t primeSpeedDrpm = 2000;
    float accelerationRpmPerSec = 100.0F;
    float decelerationRpmPerSec = 100.0F;
    std::array<SpeedRangeProfile, kSpeedInputCount> speedRanges{{
        {0, 3000, 4000, 20000, 100}, // current, microamperes
        {0, 3000, 0, 10000, 50},     // voltage, millivolts
        {0, 3000, 0, 1000, 5},       // frequency, hertz
    }};
    std::uint32_t enableLineSpeedDrpm = 1000;
    std::uint32_t numSamplesCurrent = 16;
    std::uint32_t numSamplesVoltage = 16;
    std::array<Calibration, 3> calibrations{};
    std::uint8_t headType = 0;
    std::uint8_t torqueIndex = 2;
    std::uint8_t portSetting = 0;
    IpConfig ipConfig{false, 0xC0A8000A, 0xFFFFFF00, 0xC0A80001}; // 192.168.0.10/24
};

/// Fixed limits of the settings.
namespace limits {
inline constexpr float kMinimumCelerationRpmPerSec = 1.0F;
inline constexpr float kMaximumCelerationRpmPerSec = 1000.0F;
inline constexpr std::uint32_t kMinimumNumSamples = 1;
inline constexpr std::uint32_t kMaximumNumSamples = 256;
inline constexpr std::uint32_t kMinimumEnableLineSpeedDrpm = 0;
inline constexpr std::array<SpeedRangeProfile, kSpeedInputCount> kSpeedRangeLimits{{
    {0, 3000, 0, 24000, 2000},
    {0, 3000, 0, 10000, 1000},
    {0, 3000, 0, 10000, 100},
}};
} // namespace limits

} // namespace simulator
