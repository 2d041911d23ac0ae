#include "PrimeObject.h"

#include "ProxyLog.h"

namespace communication::objects {

PrimeObject::PrimeObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

bool PrimeObject::GetPrimeInputState() {
    return SendEmpty(PrimeInputState, Operation::Get);
}

bool PrimeObject::GetPrimeSpeed() {
    return SendEmpty(PrimeSpeed, Operation::Get);
}

bool PrimeObject::SetPrimeSpeed(uint32_t speedDrpm) {
    if (!WriteFields(PrimeSpeed, Operation::Set, speedDrpm)) {
        BWL_LOG_WRITE_FAILURE("SetPrimeSpeed");
    }
    return SendRequest();
}

bool PrimeObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsSubscribable(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool PrimeObject::Unsubscribe(uint8_t attribute) {
    return IsSubscribable(attribute) && SendUnsubscribe(attribute);
}

bool PrimeObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, &PrimeObject::getTimeout, &PrimeObject::setTimeout);
    return true;
}

bool PrimeObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        if (message.attribute == PrimeInputState) {
            uint8_t state = 0;
            if (!ReadValue(message, state)) {
                BWL_LOG_READ_FAILURE("GetPrimeInputStateResponseHandler");
                return false;
            }
            emit getPrimeInputStateResponse(state);
            return true;
        }
        if (message.attribute == PrimeSpeed) {
            uint32_t speedDrpm = 0;
            if (!ReadValue(message, speedDrpm)) {
                BWL_LOG_READ_FAILURE("GetPrimeSpeedResponseHandler");
                return false;
            }
            emit getPrimeSpeedResponse(speedDrpm);
            return true;
        }
        return false;
    case Operation::Set:
        emit ackSetResult(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(true, message.attribute);
        return true;
    default:
        return false;
    }
}

bool PrimeObject::HandleRefusal(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        emit ackGetResult(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(false, message.attribute);
        return true;
    default:
        // A refused set emits nothing: the value layer learns of it by its own read-back.
        return true;
    }
}

bool PrimeObject::HandleUpdate(const ProtocolMessage& message) {
    bool read = false;
    switch (message.attribute) {
    case PrimeInputState:
        read = AnswerUpdate<uint8_t>(message,
                                     [this](uint8_t state) { emit updatePrimeInputState(state); });
        break;
    case PrimeSpeed:
        read = AnswerUpdate<uint32_t>(
            message, [this](uint32_t speedDrpm) { emit updatePrimeSpeed(speedDrpm); });
        break;
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
    if (!read) {
        BWL_LOG_READ_FAILURE("UpdateHandler");
    }
    return true;
}

} // namespace communication::objects
