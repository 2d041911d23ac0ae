#include "AnalogFilterSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kNumSamplesCurrent = 1;
constexpr std::uint8_t kNumSamplesCurrentLimits = 2;
constexpr std::uint8_t kNumSamplesVoltage = 3;
constexpr std::uint8_t kNumSamplesVoltageLimits = 4;
constexpr std::uint8_t kFilterDataCurrent = 5;
constexpr std::uint8_t kFilterDataVoltage = 6;
} // namespace attribute

AnalogFilterSimObject::AnalogFilterSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 4, 4, {attribute::kFilterDataCurrent, attribute::kFilterDataVoltage})
    , mModel(model) {}

bool AnalogFilterSimObject::writeAttribute(std::uint8_t attr,
                                           halyard::protocol::PayloadWriter& writer) {
    switch (attr) {
    case attribute::kNumSamplesCurrent:
        return writer.Write(mModel.settings().numSamplesCurrent);
    case attribute::kNumSamplesVoltage:
        return writer.Write(mModel.settings().numSamplesVoltage);
    case attribute::kNumSamplesCurrentLimits:
    case attribute::kNumSamplesVoltageLimits:
        return writer.Write(limits::kMinimumNumSamples) && writer.Write(limits::kMaximumNumSamples);
    case attribute::kFilterDataCurrent:
    case attribute::kFilterDataVoltage: {
        const FilterData data = mModel.nextFilterData(
            attr == attribute::kFilterDataCurrent ? SpeedInput::Current : SpeedInput::Voltage);
        return writer.Write(data.input) && writer.Write(data.output) &&
               writer.Write(data.inputVariance) && writer.Write(data.outputVariance);
    }
    default:
        return false;
    }
}

void AnalogFilterSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
    } else if (request.operation != msg::Operation::Set) {
        reply(request, Status::InvalidOperation);
    } else if (request.attribute == attribute::kNumSamplesCurrent ||
               request.attribute == attribute::kNumSamplesVoltage) {
        const SpeedInput input = request.attribute == attribute::kNumSamplesCurrent
                                     ? SpeedInput::Current
                                     : SpeedInput::Voltage;
        applySet<std::uint32_t>(
            request, [this, input](std::uint32_t v) { return mModel.setNumSamples(input, v); });
    } else {
        reply(request, Status::InvalidAttribute);
    }
}

} // namespace simulator
