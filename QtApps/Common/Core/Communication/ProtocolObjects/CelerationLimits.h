#pragma once

namespace communication::objects {

/// Limits of the motor's acceleration and deceleration, two 32-bit floats on the wire.
struct CelerationLimits {
    float minimumRpmPerSec = 0.0F;
    float maximumRpmPerSec = 0.0F;
};

} // namespace communication::objects
