#include "SpeedCommanderObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

namespace {

// Accepted and refused sets raise the same acknowledgement.
constexpr AnswerSignals<SpeedCommanderObject> kAnswers{
    &SpeedCommanderObject::getTimeout, // get time-out
    &SpeedCommanderObject::setTimeout, // set time-out
    &SpeedCommanderObject::setAck,     // set accepted
    &SpeedCommanderObject::getAck,     // get refused
    &SpeedCommanderObject::setAck,     // set refused
};

bool ReadProfile(halyard::protocol::PayloadReader& reader, QSpeedRangeProfile& profile) {
    return reader.Read(profile.MinimumSpeedDrpm) && reader.Read(profile.MaximumSpeedDrpm) &&
           reader.Read(profile.MinimumInput) && reader.Read(profile.MaximumInput) &&
           reader.Read(profile.Hysteresis);
}

} // namespace

SpeedCommanderObject::SpeedCommanderObject(halyard::protocol::ProtocolInterface& protocol,
                                           QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool SpeedCommanderObject::IsSpeedRange(uint8_t attribute) {
    return attribute == CurrentSpeedRange || attribute == VoltageSpeedRange ||
           attribute == FrequencySpeedRange;
}

bool SpeedCommanderObject::Get(uint8_t attribute) {
    Address(attribute, Operation::Get); // the previous payload stays
    return SendRequest();
}

bool SpeedCommanderObject::SetDefault(uint8_t attribute) {
    if (!IsSpeedRange(attribute) && attribute != EnableLineSpeed) {
        return false;
    }
    Address(attribute, Operation::SetDef); // the previous payload stays
    return SendRequest();
}

bool SpeedCommanderObject::WriteProfileToRequest(uint8_t attribute,
                                                 const QSpeedRangeProfile& profile) {
    if (!IsSpeedRange(attribute)) {
        return false;
    }
    return SendCompleteFields("WriteProfileToRequest", attribute, Operation::Set,
                              profile.MinimumSpeedDrpm, profile.MaximumSpeedDrpm,
                              profile.MinimumInput, profile.MaximumInput, profile.Hysteresis);
}

bool SpeedCommanderObject::SetEnableLineSpeed(uint32_t speedDrpm) {
    return SendCompleteFields("SetEnableLineSpeed", EnableLineSpeed, Operation::Set, speedDrpm);
}

bool SpeedCommanderObject::SetHysteresis(uint8_t attribute, uint32_t hysteresis) {
    return SendCompleteFields("SetHysteresis", attribute, Operation::Set, hysteresis);
}

bool SpeedCommanderObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return attribute < 16 && SendSubscribe(attribute, perdiodMs, onChange);
}

bool SpeedCommanderObject::Unsubscribe(uint8_t attribute) {
    return attribute < 16 && SendUnsubscribe(attribute);
}

bool SpeedCommanderObject::HandleTimeout(const ProtocolMessage& message) {
    if (message.operation == Operation::SetDef) {
        emit setDefaultTimeout(message.attribute);
    } else {
        RaiseTimeoutSignal(*this, message, kAnswers);
    }
    return true;
}

// A set-default is acknowledged alike whether accepted or refused; refusals of operations this
// proxy never sends are not consumed.
bool SpeedCommanderObject::HandleRefusal(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::SetDef:
        emit setDefaultAck(message.attribute);
        return true;
    case Operation::Get:
    case Operation::Set:
    case Operation::Sub:
        return AnswerRefusal(*this, message, kAnswers);
    default:
        return false;
    }
}

bool SpeedCommanderObject::HandleResponse(const ProtocolMessage& message) {
    if (message.operation == Operation::SetDef) {
        emit setDefaultAck(message.attribute);
        return true;
    }
    return AnswerResponse(*this, message, kAnswers, &SpeedCommanderObject::HandleGet);
}

bool SpeedCommanderObject::HandleGet(const ProtocolMessage& message) {
    using Self = SpeedCommanderObject;
    switch (message.attribute) {
    case EnableLineSpeed:
        return EmitDecoded(message, &Self::getEnableLineSpeedResponse, "GetHandler");
    case EnableLineSpeedLimits:
        return EmitDecoded(message, &Self::getEnableLineSpeedLimitsResponse, "GetHandler");
    case CurrentSpeedRange:
        return EmitProfile(message, &Self::getCurrentSpeedRangeResponse);
    case CurrentSpeedRangeLimits:
        return EmitProfile(message, &Self::getCurrentSpeedRangeLimitsResponse);
    case FrequencySpeedRange:
        return EmitProfile(message, &Self::getFrequencySpeedRangeResponse);
    case FrequencySpeedRangeLimits:
        return EmitProfile(message, &Self::getFrequencySpeedRangeLimitsResponse);
    case VoltageSpeedRange:
        return EmitProfile(message, &Self::getVoltageSpeedRangeResponse);
    case VoltageSpeedRangeLimits:
        return EmitProfile(message, &Self::getVoltageSpeedRangeLimitsResponse);
    default: {
        // Any other attribute is read as a profile too, so a short one is logged, then dropped.
        halyard::protocol::PayloadReader reader = message.Reader();
        QSpeedRangeProfile unused;
        if (!ReadProfile(reader, unused)) {
            LogReadFailure("ReadProfileFromMessage");
        }
        return false;
    }
    }
}

bool SpeedCommanderObject::EmitProfile(const ProtocolMessage& message, ProfileSignal signal) {
    return EmitDecoded(message, signal, "ReadProfileFromMessage", ReadProfile);
}

bool SpeedCommanderObject::HandleUpdate(const ProtocolMessage& message) {
    using Self = SpeedCommanderObject;
    switch (message.attribute) {
    case CurrentTargetSpeed:
        return AnswerUpdate(message, &Self::updateCurrentTargetSpeed, "UpdateTargetSpeedHandler");
    case VoltageTargetSpeed:
        return AnswerUpdate(message, &Self::updateVoltageTargetSpeed, "UpdateTargetSpeedHandler");
    case FrequencyTargetSpeed:
        return AnswerUpdate(message, &Self::updateFrequencyTargetSpeed, "UpdateTargetSpeedHandler");
    case EnableLineAsserted:
        return AnswerUpdate(message, &Self::updateEnableLineAsserted,
                            "UpdateEnableLineAssertedHandler");
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
