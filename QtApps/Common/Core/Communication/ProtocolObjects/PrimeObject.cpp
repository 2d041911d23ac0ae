#include "PrimeObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

namespace {

// A refused set raises nothing: the value layer learns of it by its own read-back.
constexpr AnswerSignals<PrimeObject> kAnswers{
    &PrimeObject::getTimeout,   // get time-out
    &PrimeObject::setTimeout,   // set time-out
    &PrimeObject::ackSetResult, // set accepted
    &PrimeObject::ackGetResult, // get refused
    nullptr,                    // set refused
};

} // namespace

PrimeObject::PrimeObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool PrimeObject::GetPrimeInputState() {
    return SendEmpty(PrimeInputState, Operation::Get);
}

bool PrimeObject::GetPrimeSpeed() {
    return SendEmpty(PrimeSpeed, Operation::Get);
}

bool PrimeObject::SetPrimeSpeed(uint32_t speedDrpm) {
    return SendFields("SetPrimeSpeed", PrimeSpeed, Operation::Set, speedDrpm);
}

bool PrimeObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsSubscribable(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool PrimeObject::Unsubscribe(uint8_t attribute) {
    return IsSubscribable(attribute) && SendUnsubscribe(attribute);
}

bool PrimeObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, kAnswers);
    return true;
}

bool PrimeObject::HandleResponse(const ProtocolMessage& message) {
    return AnswerResponse(*this, message, kAnswers, &PrimeObject::HandleGetResponse);
}

bool PrimeObject::HandleRefusal(const ProtocolMessage& message) {
    return AnswerRefusal(*this, message, kAnswers);
}

bool PrimeObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case PrimeInputState:
        return EmitDecoded(message, &PrimeObject::getPrimeInputStateResponse,
                           "GetPrimeInputStateResponseHandler");
    case PrimeSpeed:
        return EmitDecoded(message, &PrimeObject::getPrimeSpeedResponse,
                           "GetPrimeSpeedResponseHandler");
    default:
        return false;
    }
}

bool PrimeObject::HandleUpdate(const ProtocolMessage& message) {
    switch (message.attribute) {
    case PrimeInputState:
        return AnswerUpdate(message, &PrimeObject::updatePrimeInputState, "UpdateHandler");
    case PrimeSpeed:
        return AnswerUpdate(message, &PrimeObject::updatePrimeSpeed, "UpdateHandler");
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
