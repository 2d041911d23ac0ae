#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The analog input object (object 4, instance 1): the measured inputs, bus voltage, temperature
/// and the converter readings, all published as floats.
class AnalogInputSimObject final : public SimObject {
public:
    AnalogInputSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
