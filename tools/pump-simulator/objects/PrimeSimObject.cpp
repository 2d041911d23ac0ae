#include "PrimeSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kPrimeInputState = 1;
constexpr std::uint8_t kPrimeSpeed = 3;
} // namespace attribute

PrimeSimObject::PrimeSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 2, 2, {attribute::kPrimeInputState, attribute::kPrimeSpeed})
    , mModel(model) {}

bool PrimeSimObject::writeAttribute(std::uint8_t attr, halyard::protocol::PayloadWriter& writer) {
    switch (attr) {
    case attribute::kPrimeInputState:
        return writer.Write(static_cast<std::uint8_t>(mModel.primeInputActive()));
    case attribute::kPrimeSpeed:
        return writer.Write(mModel.settings().primeSpeedDrpm);
    default:
        return false;
    }
}

void PrimeSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
    } else if (request.operation != msg::Operation::Set) {
        reply(request, Status::InvalidOperation);
    } else if (request.attribute == attribute::kPrimeSpeed) {
        applySet<std::uint32_t>(request,
                                [this](std::uint32_t v) { return mModel.setPrimeSpeed(v); });
    } else {
        reply(request, Status::InvalidAttribute);
    }
}

} // namespace simulator
