#pragma once

#include <cstdint>

// Small enumerations that travel in the pump's payloads as one byte each. The proxies pass them
// through; the texts for the screens are in DeviceObject/EnumerationTexts.

namespace halyard {

/// Direction of rotation as the pump reports it; 0 is forward, anything else reverse.
enum class Direction : std::uint8_t { Forward = 0, Reverse = 1 };

} // namespace halyard

namespace halyard::pump {

/// What commands the pump's speed.
enum class ControlInput : std::uint8_t {
    None = 0,
    EnableLine = 1,
    Voltage = 2,
    Current = 3,
    Frequency = 4,
    Application = 5,
    Network = 6,
    Count = 7,
};

/// Index of the fitted pump head in the pump-head catalogue (0 to 26).
enum class PumpHead : std::uint8_t {};
inline constexpr std::uint8_t kPumpHeadCount = 27;

/// How a speed setting changed.
enum class SpeedChange : std::uint8_t { NoChange = 0, Increase = 1, Decrease = 2 };

} // namespace halyard::pump

namespace communication {

/// A motor fault to raise at the pump (set-fault request) or that the pump confirms: 0 is no
/// fault, 1 to 14 are the fault types, fault index + 1.
enum class MotorFaultType : std::uint8_t {
    None = 0,
    Overvoltage = 1,
    Undervoltage = 2,
    Overcurrent = 3,
    Software = 4,
    Stall = 5,
    OverTemperatureWarning = 6,
    OverTemperatureShutdown = 7,
    InverterVdsOvercurrent = 8,
    InverterSenseAmplifierOvercurrent = 9,
    InverterUnderVoltageLockout = 10,
    InverterGateDrive = 11,
    InverterChargePumpUndervoltage = 12,
    VoltageRange = 13,
    Speed = 14,
};

} // namespace communication
