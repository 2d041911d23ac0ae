#include "AnalogInputSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kInputCurrent = 0;
constexpr std::uint8_t kInputVoltage = 1;
constexpr std::uint8_t kFrequency = 2;
constexpr std::uint8_t kBusVoltage = 3;
constexpr std::uint8_t kTemperature = 4;
constexpr std::uint8_t kAdcCurrent = 5;
constexpr std::uint8_t kAdcVoltage = 6;
constexpr std::uint8_t kAdcBusVoltage = 7;
} // namespace attribute

AnalogInputSimObject::AnalogInputSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 4, 1, {0, 1, 2, 3, 4, 5, 6, 7})
    , mModel(model) {}

bool AnalogInputSimObject::writeAttribute(std::uint8_t attr,
                                          halyard::protocol::PayloadWriter& writer) {
    switch (attr) {
    case attribute::kInputCurrent:
        return writer.Write(mModel.analogInput(SpeedInput::Current));
    case attribute::kInputVoltage:
        return writer.Write(mModel.analogInput(SpeedInput::Voltage));
    case attribute::kFrequency:
        return writer.Write(mModel.analogInput(SpeedInput::Frequency));
    case attribute::kBusVoltage:
        return writer.Write(mModel.busVoltageMv());
    case attribute::kTemperature:
        return writer.Write(mModel.temperatureC());
    case attribute::kAdcCurrent:
        return writer.Write(mModel.adcCurrentMv());
    case attribute::kAdcVoltage:
        return writer.Write(mModel.adcVoltageMv());
    case attribute::kAdcBusVoltage:
        return writer.Write(mModel.adcBusVoltageMv());
    default:
        return false;
    }
}

void AnalogInputSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
    } else {
        reply(request, Status::InvalidOperation); // measurements only
    }
}

} // namespace simulator
