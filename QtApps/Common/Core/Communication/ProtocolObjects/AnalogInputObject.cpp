#include "AnalogInputObject.h"

#include "ProxyLog.h"

namespace communication::objects {

AnalogInputObject::AnalogInputObject(halyard::protocol::ProtocolInterface& protocol,
                                     QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

bool AnalogInputObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsPublished(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool AnalogInputObject::Unsubscribe(uint8_t attribute) {
    return IsPublished(attribute) && SendUnsubscribe(attribute);
}

bool AnalogInputObject::HandleTimeout(const ProtocolMessage& message) {
    if (message.operation == Operation::Sub) {
        emit subscribeTimeout(message.attribute);
    } else if (message.operation == Operation::Unsub) {
        emit unsubscribeTimeout(message.attribute);
    }
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
    // Every attribute is one float: the payload is checked before the attribute.
    float value = 0.0F;
    if (!ReadValue(message, value)) {
        BWL_LOG_READ_FAILURE("UpdateHandler");
        ReplyInvalidMessageData(message);
        return true;
    }
    switch (message.attribute) {
    case InputCurrent:
        emit updateInputCurrent(value);
        break;
    case InputVoltage:
        emit updateInputVoltage(value);
        break;
    case Frequency:
        emit updateFrequency(value);
        break;
    case BusVoltage:
        emit updateBusVoltage(value);
        break;
    case Temperature:
        emit updateTemperature(value);
        break;
    case AdcCurrent:
        emit updateAdcCurrent(value);
        break;
    case AdcVoltage:
        emit updateAdcVoltage(value);
        break;
    case AdcBusVoltage:
        emit updateAdcBusVoltage(value);
        break;
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
    ReplySuccess(message);
    return true;
}

} // namespace communication::objects
