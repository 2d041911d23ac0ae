#include "MotorStepperObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

namespace {

// Unlike the motor proxy, a refused set raises its own signal.
constexpr AnswerSignals<MotorStepperObject> kAnswers{
    &MotorStepperObject::getTimeout,   // get time-out
    &MotorStepperObject::setTimeout,   // set time-out
    &MotorStepperObject::ackSetResult, // set accepted
    &MotorStepperObject::ackGetResult, // get refused
    &MotorStepperObject::nakSetResult, // set refused
};

// One float per torque index, as many as fit; a trailing part of a float is ignored. An answer
// without a single target is a read failure.
bool ReadTorqueTargets(halyard::protocol::PayloadReader& reader, QList<float>& targetCurrentsA) {
    float target = 0.0F;
    while (reader.Read(target)) {
        targetCurrentsA.append(target);
    }
    return !targetCurrentsA.isEmpty();
}

} // namespace

MotorStepperObject::MotorStepperObject(halyard::protocol::ProtocolInterface& protocol,
                                       QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool MotorStepperObject::GetTorqueIndex() {
    return SendEmpty(TorqueIndex, Operation::Get);
}
bool MotorStepperObject::GetTorqueTargets() {
    return SendEmpty(TorqueTargets, Operation::Get);
}

bool MotorStepperObject::SetTorqueIndex(uint8_t index) {
    return SendFields("SetTorqueIndex", TorqueIndex, Operation::Set, index);
}

bool MotorStepperObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, kAnswers);
    return true;
}

bool MotorStepperObject::HandleRefusal(const ProtocolMessage& message) {
    return AnswerRefusal(*this, message, kAnswers);
}

bool MotorStepperObject::HandlePumpRequest(const ProtocolMessage& /*message*/) {
    return false;
}

bool MotorStepperObject::HandleResponse(const ProtocolMessage& message) {
    return AnswerResponse(*this, message, kAnswers, &MotorStepperObject::HandleGetResponse);
}

bool MotorStepperObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case TorqueIndex:
        return EmitDecoded(message, &MotorStepperObject::getTorqueIndexResponse,
                           "GetTorqueIndexResponseHandler");
    case TorqueTargets:
        return EmitDecoded(message, &MotorStepperObject::getTorqueTargetsResponse,
                           "GetTorqueTargetsResponseHandler", ReadTorqueTargets);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
