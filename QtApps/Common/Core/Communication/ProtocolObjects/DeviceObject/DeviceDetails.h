#pragma once

#include "Common/Protocol/SemanticVersion.h"

#include <QString>

#include <cstdint>

namespace communication::objects {

/// Kind of drive, as DeviceDetails::deviceType and PumpDetails::pumpType report it. The
/// field-oriented-control steppers (9, 10) are shown with the texts of 1 and 4.
enum class DeviceType : std::uint8_t {
    Unknown = 0,
    StepperAnalog = 1,
    StepperAnalogVoltage = 2,
    StepperAnalogCurrent = 3,
    StepperNetwork = 4,
    StepperNetworkVoltage = 5,
    StepperNetworkCurrent = 6,
    BldcAnalog = 7,
    BldcNetwork = 8,
    StepperFocAnalog = 9,
    StepperFocNetwork = 10,
};

/// What the device object reports of the pump: 4 bytes on the wire, the device type and the
/// application firmware version (major, minor, patch).
struct DeviceDetails {
    std::uint8_t deviceType = 0;
    halyard::SemanticVersion appVersion;

    QString AppVersionText() const {
        return QStringLiteral("%1.%2.%3")
            .arg(appVersion.major)
            .arg(appVersion.minor)
            .arg(appVersion.patch);
    }
};

} // namespace communication::objects
