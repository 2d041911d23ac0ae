#pragma once

#include <QObject>

namespace communication::objects {

/// One sample of an analog input filter as the pump publishes it: four 32-bit floats, 16 bytes,
/// in field order. Input and output are in the input's unit (microamperes or millivolts), as the
/// analog input object publishes them; the variances in its square, fractional at low noise.
struct AnalogFilterData {
    Q_GADGET
    Q_PROPERTY(float input MEMBER input)
    Q_PROPERTY(float output MEMBER output)
    Q_PROPERTY(float inputVariance MEMBER inputVariance)
    Q_PROPERTY(float outputVariance MEMBER outputVariance)

public:
    float input = 0.0F;
    float output = 0.0F;
    float inputVariance = 0.0F;
    float outputVariance = 0.0F;
};

} // namespace communication::objects
