#include "MotorStepperSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kTorqueIndex = 5;
constexpr std::uint8_t kTorqueTargets = 6;
} // namespace attribute

MotorStepperSimObject::MotorStepperSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 3, 2)
    , mModel(model) {}

bool MotorStepperSimObject::writeAttribute(std::uint8_t attr,
                                           halyard::protocol::PayloadWriter& writer) {
    switch (attr) {
    case attribute::kTorqueIndex:
        return writer.Write(mModel.settings().torqueIndex);
    case attribute::kTorqueTargets:
        for (const float target : mModel.torqueTargetsA()) {
            if (!writer.Write(target)) {
                return false;
            }
        }
        return true;
    default:
        return false;
    }
}

void MotorStepperSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
    } else if (request.operation != msg::Operation::Set) {
        reply(request, Status::InvalidOperation);
    } else if (request.attribute == attribute::kTorqueIndex) {
        // The new index takes effect at the next restart, which the application asks for.
        applySet<std::uint8_t>(request,
                               [this](std::uint8_t v) { return mModel.setTorqueIndex(v); });
    } else {
        reply(request, Status::InvalidAttribute);
    }
}

} // namespace simulator
