#include "MotorSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kActualSpeed = 3;
constexpr std::uint8_t kEncoderData = 4;
constexpr std::uint8_t kAcceleration = 5;
constexpr std::uint8_t kDeceleration = 6;
constexpr std::uint8_t kCelerationLimits = 7;
constexpr std::uint8_t kAligned = 8;
constexpr std::uint8_t kEnergised = 10;
} // namespace attribute

MotorSimObject::MotorSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 3, 1,
                {attribute::kActualSpeed, attribute::kAligned, attribute::kEnergised})
    , mModel(model) {}

bool MotorSimObject::writeAttribute(std::uint8_t attr, halyard::protocol::PayloadWriter& writer) {
    switch (attr) {
    case attribute::kActualSpeed:
        return writer.Write(mModel.actualSpeedDrpm());
    case attribute::kEncoderData: {
        const EncoderData data = mModel.encoderData();
        return writer.Write(data.position) && writer.Write(data.revolutions) &&
               writer.Write(data.status) && writer.Write(data.warnings) &&
               writer.Write(data.errors) && writer.Write(data.fieldStrength);
    }
    case attribute::kAcceleration:
        return writer.Write(mModel.settings().accelerationRpmPerSec);
    case attribute::kDeceleration:
        return writer.Write(mModel.settings().decelerationRpmPerSec);
    case attribute::kCelerationLimits:
        return writer.Write(limits::kMinimumCelerationRpmPerSec) &&
               writer.Write(limits::kMaximumCelerationRpmPerSec);
    case attribute::kAligned:
        return writer.Write(static_cast<std::uint8_t>(mModel.aligned()));
    case attribute::kEnergised:
        return writer.Write(static_cast<std::uint8_t>(mModel.energised()));
    default:
        return false;
    }
}

void MotorSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
    } else if (request.operation != msg::Operation::Set) {
        reply(request, Status::InvalidOperation);
    } else if (request.attribute == attribute::kAcceleration) {
        applySet<float>(request, [this](float v) { return mModel.setAcceleration(v); });
    } else if (request.attribute == attribute::kDeceleration) {
        applySet<float>(request, [this](float v) { return mModel.setDeceleration(v); });
    } else {
        reply(request, Status::InvalidAttribute);
    }
}

} // namespace simulator
