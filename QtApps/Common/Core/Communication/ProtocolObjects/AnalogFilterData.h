#pragma once

namespace communication::objects {

/// One sample of an analog input filter as the pump publishes it: four 32-bit floats, 16 bytes,
/// in field order. Input and output are in the input's unit (microamperes or millivolts), as the
/// analog input object publishes them; the variances in its square, fractional at low noise.
struct AnalogFilterData {
    float input = 0.0F;
    float output = 0.0F;
    float inputVariance = 0.0F;
    float outputVariance = 0.0F;
};

} // namespace communication::objects
