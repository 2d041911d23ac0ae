#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace simulator {

/// Product data of the simulated drive family: the pump-head catalogue and the names used in
/// the event log.
namespace catalogue {

struct PumpHead {
    const char* name;           // at most 11 characters
    std::uint32_t maxSpeedDrpm; // rated speed, tenths of rpm (0 for "None")
    // Which motor kinds drive the head (1 yes, 0 no): the application lists a head only for a
    // pump whose motor it fits.
    std::uint8_t bldcCompatible;
    std::uint8_t stepperCompatible;
};

inline constexpr std::size_t kPumpHeadCount = 27;
const std::array<PumpHead, kPumpHeadCount>& pumpHeads();
/// Index of the head with this name, or -1.
int pumpHeadIndex(const QString& name);

/// Fault types 1..14 (bit n of the fault word is fault type n).
inline constexpr std::uint8_t kFaultTypeCount = 14;
inline constexpr std::uint8_t kFaultOverTemperatureWarning = 6;
inline constexpr std::uint8_t kFaultOverTemperatureShutdown = 7;
QString faultName(std::uint8_t faultType);

QString controlInputName(std::uint8_t controlInput);
inline constexpr std::uint8_t kControlInputCount = 7;

} // namespace catalogue
} // namespace simulator
