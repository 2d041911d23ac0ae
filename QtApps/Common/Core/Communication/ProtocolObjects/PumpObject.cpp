#include "PumpObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

namespace {

// A refused set raises ackSetResult exactly like an accepted one: callers read the value back
// after every acknowledged set, which shows what the pump holds either way.
constexpr AnswerSignals<PumpObject> kAnswers{
    &PumpObject::getTimeout,   // get time-out
    &PumpObject::setTimeout,   // set time-out
    &PumpObject::ackSetResult, // set accepted
    &PumpObject::ackGetResult, // get refused
    &PumpObject::ackSetResult, // set refused
};

// A control input outside the known ones is a read failure like a short payload.
bool ReadControlInput(halyard::protocol::PayloadReader& reader,
                      halyard::pump::ControlInput& controlInput) {
    uint8_t raw = 0;
    if (!reader.Read(raw) || raw >= static_cast<uint8_t>(halyard::pump::ControlInput::Count)) {
        return false;
    }
    controlInput = static_cast<halyard::pump::ControlInput>(raw);
    return true;
}

} // namespace

PumpObject::PumpObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool PumpObject::IsPublished(uint8_t attribute) {
    switch (attribute) {
    case Faults:
    case ApplicationSpeed:
    case ApplicationOverrideActive:
    case MaxApplicationSpeed:
    case CoverStatus:
    case Direction:
    case PowerUsage:
        return true;
    default:
        return false;
    }
}

bool PumpObject::RequestAckFaults() {
    return SendEmpty(FaultAcknowledge, Operation::Ack);
}

// The motor-fault and override setters send nothing when the payload cannot be written; the
// other setters log and send what was built.
bool PumpObject::RequestSetMotorFault(uint8_t faultType) {
    return SendCompleteFields("RequestSetMotorFault", Faults, Operation::Set, faultType);
}

bool PumpObject::RequestSetControlInput(uint8_t controlInput) {
    return SendFields("RequestSetControlInput", ControlInput, Operation::Set, controlInput);
}

bool PumpObject::RequestSetApplicationSpeed(uint32_t applicationSpeedDrpm) {
    return SendFields("RequestSetApplicationSpeed", ApplicationSpeed, Operation::Set,
                      applicationSpeedDrpm);
}

bool PumpObject::RequestSetApplicationSpeedEnable(uint8_t enable) {
    return SendFields("RequestSetApplicationSpeedEnable", ApplicationSpeedEnable, Operation::Set,
                      enable);
}

bool PumpObject::RequestSetApplicationOverrideActive(uint8_t active) {
    return SendCompleteFields("RequestSetApplicationOverrideActive", ApplicationOverrideActive,
                              Operation::Set, active);
}

bool PumpObject::RequestGetControlInput() {
    return SendEmpty(ControlInput, Operation::Get);
}

bool PumpObject::RequestGetApplicationSpeed() {
    return SendEmpty(ApplicationSpeed, Operation::Get);
}

bool PumpObject::RequestGetApplicationSpeedEnable() {
    return SendEmpty(ApplicationSpeedEnable, Operation::Get);
}

bool PumpObject::RequestGetApplicationOverrideActive() {
    return SendEmpty(ApplicationOverrideActive, Operation::Get);
}

bool PumpObject::RequestGetMaxApplicationSpeed() {
    return SendEmpty(MaxApplicationSpeed, Operation::Get);
}

bool PumpObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsPublished(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool PumpObject::Unsubscribe(uint8_t attribute) {
    return IsPublished(attribute) && SendUnsubscribe(attribute);
}

bool PumpObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, kAnswers);
    return true;
}

bool PumpObject::HandleRefusal(const ProtocolMessage& message) {
    return AnswerRefusal(*this, message, kAnswers);
}

bool PumpObject::HandleResponse(const ProtocolMessage& message) {
    // The pump confirms a motor fault with the fault it raised. The fault acknowledgement's
    // answer is not consumed.
    if (message.operation == Operation::Set && message.attribute == Faults) {
        return EmitDecoded(message, &PumpObject::ackSetFaultResult, "SetFaultResponseHandler");
    }
    return AnswerResponse(*this, message, kAnswers, &PumpObject::HandleGetResponse);
}

bool PumpObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case ControlInput:
        return EmitDecoded(message, &PumpObject::getControlInputResponse,
                           "GetControlInputResponseHandler", ReadControlInput);
    case ApplicationSpeed:
        return EmitDecoded(message, &PumpObject::getApplicationSpeedResponse,
                           "GetApplicationSpeedResponseHandler");
    case ApplicationSpeedEnable:
        return EmitDecoded(message, &PumpObject::getApplicationSpeedEnableResponse,
                           "GetApplicationSpeedEnableResponseHandler");
    case ApplicationOverrideActive:
        return EmitDecoded(message, &PumpObject::getApplicationOverrideActiveResponse,
                           "GetApplicationOverrideActiveResponseHandler");
    case MaxApplicationSpeed:
        return EmitDecoded(message, &PumpObject::getMaxApplicationSpeedResponse,
                           "GetMaxApplicationSpeedResponseHandler");
    default:
        return false;
    }
}

bool PumpObject::HandleUpdate(const ProtocolMessage& message) {
    // Short updates of the 4-byte attributes (3, 6, 9) are answered without a log line; the
    // one-byte and fault updates are also logged.
    switch (message.attribute) {
    case Faults:
        return AnswerUpdate(message, &PumpObject::updateFaults, "UpdateHandler");
    case ApplicationSpeed:
        return AnswerUpdate(message, &PumpObject::updateApplicationSpeed, kNotLogged);
    case ApplicationOverrideActive:
        return AnswerUpdate(message, &PumpObject::updateApplicationOverrideActive, "UpdateHandler");
    case MaxApplicationSpeed:
        return AnswerUpdate(message, &PumpObject::updateMaxApplicationSpeed, kNotLogged);
    case CoverStatus:
        return AnswerUpdate(message, &PumpObject::updateCoverStatus, "UpdateHandler");
    case Direction:
        return AnswerUpdate(message, &PumpObject::updateDirection, "UpdateHandler");
    case PowerUsage:
        return AnswerUpdate(message, &PumpObject::updatePowerUsage, kNotLogged);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
