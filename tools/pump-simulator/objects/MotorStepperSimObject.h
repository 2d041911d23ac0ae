#pragma once

#include "SimObject.h"

namespace simulator {

class PumpModel;

/// The stepper drive object (object 3, instance 2): torque index and the torque targets.
class MotorStepperSimObject final : public SimObject {
public:
    MotorStepperSimObject(const Context& context, PumpModel& model);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    PumpModel& mModel;
};

} // namespace simulator
