#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The analog filter object (object 4, instance 4): sample counts of the current and voltage
/// filters with their limits, and the filter data streams.
class AnalogFilterSimObject final : public SimObject {
public:
    AnalogFilterSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
