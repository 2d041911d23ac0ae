#include "PumpSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;
using halyard::protocol::PayloadWriter;

namespace attribute {
constexpr std::uint8_t kFaultAcknowledge = 0;
constexpr std::uint8_t kFaults = 1;
constexpr std::uint8_t kControlInput = 2;
constexpr std::uint8_t kApplicationSpeed = 3;
constexpr std::uint8_t kApplicationSpeedEnable = 4;
constexpr std::uint8_t kOverrideActive = 5;
constexpr std::uint8_t kMaxApplicationSpeed = 6;
constexpr std::uint8_t kCoverStatus = 7;
constexpr std::uint8_t kDirection = 8;
constexpr std::uint8_t kPowerUsage = 9;
} // namespace attribute

PumpSimObject::PumpSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 2, 1,
                {attribute::kFaults, attribute::kApplicationSpeed, attribute::kOverrideActive,
                 attribute::kMaxApplicationSpeed, attribute::kCoverStatus, attribute::kDirection,
                 attribute::kPowerUsage})
    , mModel(model) {}

bool PumpSimObject::writeAttribute(std::uint8_t attr, PayloadWriter& writer) {
    switch (attr) {
    case attribute::kFaults:
        return writer.Write(mModel.faults());
    case attribute::kControlInput:
        return writer.Write(mModel.settings().controlInput);
    case attribute::kApplicationSpeed:
        return writer.Write(mModel.applicationSpeedDrpm());
    case attribute::kApplicationSpeedEnable:
        return writer.Write(static_cast<std::uint8_t>(mModel.settings().applicationSpeedEnable));
    case attribute::kOverrideActive:
        return writer.Write(static_cast<std::uint8_t>(mModel.applicationOverrideActive()));
    case attribute::kMaxApplicationSpeed:
        return writer.Write(PumpModel::kMaxSpeedDrpm);
    case attribute::kCoverStatus:
        return writer.Write(static_cast<std::uint8_t>(mModel.coverOpen()));
    case attribute::kDirection:
        return writer.Write(mModel.direction());
    case attribute::kPowerUsage:
        return writer.Write(mModel.powerW());
    default:
        return false;
    }
}

void PumpSimObject::onRequest(const Message& request) {
    switch (request.operation) {
    case msg::Operation::Get:
        replyWithAttribute(request);
        return;
    case msg::Operation::Set:
        onSet(request);
        return;
    case msg::Operation::Ack:
        if (request.attribute == attribute::kFaultAcknowledge) {
            mModel.acknowledgeFaults();
            reply(request, Status::Success);
        } else {
            reply(request, Status::InvalidAttribute);
        }
        return;
    default:
        reply(request, Status::InvalidOperation);
        return;
    }
}

void PumpSimObject::onSet(const Message& request) {
    switch (request.attribute) {
    case attribute::kFaults:
        setFault(request);
        return;
    case attribute::kControlInput:
        applySet<std::uint8_t>(request,
                               [this](std::uint8_t v) { return mModel.setControlInput(v); });
        return;
    case attribute::kApplicationSpeed:
        applySet<std::int32_t>(request,
                               [this](std::int32_t v) { return mModel.setApplicationSpeed(v); });
        return;
    case attribute::kApplicationSpeedEnable:
        applySet<std::uint8_t>(request, [this](std::uint8_t v) {
            mModel.setApplicationSpeedEnable(v != 0);
            return true;
        });
        return;
    case attribute::kOverrideActive:
        applySet<std::uint8_t>(request, [this](std::uint8_t v) {
            mModel.setApplicationOverrideActive(v != 0);
            return true;
        });
        return;
    default:
        reply(request, Status::InvalidAttribute);
        return;
    }
}

void PumpSimObject::setFault(const Message& request) {
    // The "test faults" of the override screen: the answer carries the fault type back.
    std::uint8_t faultType = 0;
    if (!readField(request, faultType)) {
        refuseData(request, "payload too short");
        return;
    }
    if (!mModel.raiseFault(faultType)) {
        refuseData(request, "no such fault type");
        return;
    }
    replyWithPayload(request, QByteArray(1, static_cast<char>(faultType)));
}

} // namespace simulator
