#pragma once

#include <QObject>

namespace communication::objects {

/// Limits of the motor's acceleration and deceleration, two 32-bit floats on the wire.
struct CelerationLimits {
    Q_GADGET
    Q_PROPERTY(float minimumRpmPerSec MEMBER minimumRpmPerSec)
    Q_PROPERTY(float maximumRpmPerSec MEMBER maximumRpmPerSec)

public:
    float minimumRpmPerSec = 0.0F;
    float maximumRpmPerSec = 0.0F;
};

} // namespace communication::objects
