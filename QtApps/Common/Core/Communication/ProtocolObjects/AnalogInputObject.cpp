#include "AnalogInputObject.h"

#include "ProxyAnswers.h"

#include <iterator>

namespace communication::objects {

AnalogInputObject::AnalogInputObject(halyard::protocol::ProtocolInterface& protocol,
                                     QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool AnalogInputObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsPublished(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool AnalogInputObject::Unsubscribe(uint8_t attribute) {
    return IsPublished(attribute) && SendUnsubscribe(attribute);
}

bool AnalogInputObject::HandleTimeout(const ProtocolMessage& message) {
    // Only subscriptions report their time-out: no get or set signals are raised.
    RaiseTimeoutSignal(*this, message, AnswerSignals<AnalogInputObject>{});
    return true;
}

bool AnalogInputObject::HandleResponse(const ProtocolMessage& message) {
    emit ackResult(true, message.attribute);
    return true;
}

bool AnalogInputObject::HandleRefusal(const ProtocolMessage& message) {
    emit ackResult(false, message.attribute);
    return true;
}

bool AnalogInputObject::HandleUnknownType(const ProtocolMessage& message) {
    emit ackResult(false, message.attribute);
    return true;
}

bool AnalogInputObject::HandleUpdate(const ProtocolMessage& message) {
    using Update = void (AnalogInputObject::*)(float);
    // By attribute, 0 to 7.
    static constexpr Update kUpdates[] = {
        &AnalogInputObject::updateInputCurrent, &AnalogInputObject::updateInputVoltage,
        &AnalogInputObject::updateFrequency,    &AnalogInputObject::updateBusVoltage,
        &AnalogInputObject::updateTemperature,  &AnalogInputObject::updateAdcCurrent,
        &AnalogInputObject::updateAdcVoltage,   &AnalogInputObject::updateAdcBusVoltage,
    };
    static_assert(std::size(kUpdates) == AdcBusVoltage + 1);
    // Every attribute is one float: the payload is checked before the attribute.
    float value = 0.0F;
    halyard::protocol::PayloadReader reader = message.Reader();
    if (!ReadField(reader, value)) {
        LogReadFailure("UpdateHandler");
        ReplyInvalidMessageData(message);
        return true;
    }
    if (!IsPublished(message.attribute)) {
        ReplyInvalidAttribute(message);
        return true;
    }
    emit(this->*kUpdates[message.attribute])(value);
    ReplySuccess(message);
    return true;
}

} // namespace communication::objects
