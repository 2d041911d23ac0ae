#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The motor object (object 3, instance 1): actual speed, alignment and energised state, encoder
/// data, acceleration and deceleration with their limits.
class MotorSimObject final : public SimObject {
public:
    MotorSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
