#include "MotorObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

using halyard::protocol::PayloadReader;

namespace {

// Accepted and refused sets both raise ackSetResult.
constexpr AnswerSignals<MotorObject> kAnswers{
    &MotorObject::getTimeout,   // get time-out
    &MotorObject::setTimeout,   // set time-out
    &MotorObject::ackSetResult, // set accepted
    &MotorObject::ackGetResult, // get refused
    &MotorObject::ackSetResult, // set refused
};

// The readout has a fixed size: an answer with bytes left over is not one.
bool ReadEncoderData(PayloadReader& reader, halyard::encoder::EncoderData& data) {
    return reader.Read(data.count) && reader.Read(data.revolutions) && reader.Read(data.status) &&
           reader.Read(data.warnings) && reader.Read(data.errors) &&
           reader.Read(data.fieldStrength) && reader.Remaining() == 0;
}

bool ReadCelerationLimits(PayloadReader& reader, CelerationLimits& limits) {
    return reader.Read(limits.minimumRpmPerSec) && reader.Read(limits.maximumRpmPerSec);
}

} // namespace

MotorObject::MotorObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool MotorObject::IsPublished(uint8_t attribute) {
    return attribute == ActualSpeed || attribute == Aligned || attribute == Energised;
}

bool MotorObject::GetEncoderData() {
    return SendEmpty(EncoderData, Operation::Get);
}
bool MotorObject::GetAcceleration() {
    return SendEmpty(Acceleration, Operation::Get);
}
bool MotorObject::GetDeceleration() {
    return SendEmpty(Deceleration, Operation::Get);
}
bool MotorObject::GetCelerationLimits() {
    return SendEmpty(CelerationLimits, Operation::Get);
}

bool MotorObject::SetAcceleration(float accelerationRpmPerSec) {
    return SendFields("SetAcceleration", Acceleration, Operation::Set, accelerationRpmPerSec);
}

bool MotorObject::SetDeceleration(float decelerationRpmPerSec) {
    return SendFields("SetDeceleration", Deceleration, Operation::Set, decelerationRpmPerSec);
}

bool MotorObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsPublished(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool MotorObject::Unsubscribe(uint8_t attribute) {
    return IsPublished(attribute) && SendUnsubscribe(attribute);
}

bool MotorObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, kAnswers);
    return true;
}

bool MotorObject::HandleRefusal(const ProtocolMessage& message) {
    return AnswerRefusal(*this, message, kAnswers);
}

bool MotorObject::HandleResponse(const ProtocolMessage& message) {
    if (message.operation == Operation::Unsub) {
        return true; // consumed, nothing to report
    }
    return AnswerResponse(*this, message, kAnswers, &MotorObject::HandleGetResponse);
}

bool MotorObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case EncoderData:
        return EmitDecoded(message, &MotorObject::getEncoderDataResponse,
                           "GetEncoderDataResponseHandler", ReadEncoderData);
    case Acceleration:
        return EmitDecoded(message, &MotorObject::getAccelerationResponse,
                           "GetAccelerationResponseHandler");
    case Deceleration:
        return EmitDecoded(message, &MotorObject::getDecelerationResponse,
                           "GetDecelerationResponseHandler");
    case CelerationLimits:
        return EmitDecoded(message, &MotorObject::getCelerationLimitsResponse,
                           "GetCelerationLimitsResponseHandler", ReadCelerationLimits);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

bool MotorObject::HandleUpdate(const ProtocolMessage& message) {
    // Short alignment and energised updates are answered without a log line.
    switch (message.attribute) {
    case ActualSpeed:
        return AnswerUpdate(message, &MotorObject::updateActualSpeed, "ActualSpeedUpdateHandler");
    case Aligned:
        return AnswerUpdate(message, &MotorObject::updateIsAligned, kNotLogged);
    case Energised:
        return AnswerUpdate(message, &MotorObject::updateIsEnergized, kNotLogged);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
