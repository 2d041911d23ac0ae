#pragma once

#include "Common/Protocol/SemanticVersion.h"

#include <QString>

#include <cstdint>

namespace communication::objects {

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
