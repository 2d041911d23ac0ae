#include "SpeedCommanderObject.h"

#include "ProxyLog.h"

namespace communication::objects {

SpeedCommanderObject::SpeedCommanderObject(halyard::protocol::ProtocolInterface& protocol,
                                           QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

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
    if (!WriteFields(attribute, Operation::Set, profile.MinimumSpeedDrpm, profile.MaximumSpeedDrpm,
                     profile.MinimumInput, profile.MaximumInput, profile.Hysteresis)) {
        BWL_LOG_WRITE_FAILURE("WriteProfileToRequest");
        return false;
    }
    return SendRequest();
}

bool SpeedCommanderObject::WriteSingleValue(uint8_t attribute, uint32_t value,
                                            const char* function) {
    if (!WriteFields(attribute, Operation::Set, value)) {
        BWL_LOG_WRITE_FAILURE(function);
        return false;
    }
    return SendRequest();
}

bool SpeedCommanderObject::SetEnableLineSpeed(uint32_t speedDrpm) {
    return WriteSingleValue(EnableLineSpeed, speedDrpm, "SetEnableLineSpeed");
}

bool SpeedCommanderObject::SetHysteresis(uint8_t attribute, uint32_t hysteresis) {
    return WriteSingleValue(attribute, hysteresis, "SetHysteresis");
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
        RaiseTimeoutSignal(*this, message, &SpeedCommanderObject::getTimeout,
                           &SpeedCommanderObject::setTimeout);
    }
    return true;
}

bool SpeedCommanderObject::HandleRefusal(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        emit getAck(message.attribute);
        return true;
    case Operation::Set:
        emit setAck(message.attribute);
        return true;
    case Operation::SetDef:
        emit setDefaultAck(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(false, message.attribute);
        return true;
    default:
        return false;
    }
}

bool SpeedCommanderObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        return HandleGet(message);
    case Operation::Set:
        emit setAck(message.attribute);
        return true;
    case Operation::SetDef:
        emit setDefaultAck(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(true, message.attribute);
        return true;
    default:
        return false;
    }
}

bool SpeedCommanderObject::HandleGet(const ProtocolMessage& message) {
    halyard::protocol::PayloadReader reader = message.Reader();
    if (message.attribute == EnableLineSpeed) {
        uint32_t speedDrpm = 0;
        if (!reader.Read(speedDrpm)) {
            BWL_LOG_READ_FAILURE("GetHandler");
            return false;
        }
        emit getEnableLineSpeedResponse(speedDrpm);
        return true;
    }
    if (message.attribute == EnableLineSpeedLimits) {
        uint32_t minSpeedDrpm = 0;
        uint32_t maxSpeedDrpm = 0;
        if (!reader.Read(minSpeedDrpm) || !reader.Read(maxSpeedDrpm)) {
            BWL_LOG_READ_FAILURE("GetHandler");
            return false;
        }
        emit getEnableLineSpeedLimitsResponse(minSpeedDrpm, maxSpeedDrpm);
        return true;
    }

    QSpeedRangeProfile profile;
    if (!reader.Read(profile.MinimumSpeedDrpm) || !reader.Read(profile.MaximumSpeedDrpm) ||
        !reader.Read(profile.MinimumInput) || !reader.Read(profile.MaximumInput) ||
        !reader.Read(profile.Hysteresis)) {
        BWL_LOG_READ_FAILURE("ReadProfileFromMessage");
        return false;
    }
    switch (message.attribute) {
    case CurrentSpeedRange:
        emit getCurrentSpeedRangeResponse(profile);
        return true;
    case CurrentSpeedRangeLimits:
        emit getCurrentSpeedRangeLimitsResponse(profile);
        return true;
    case FrequencySpeedRange:
        emit getFrequencySpeedRangeResponse(profile);
        return true;
    case FrequencySpeedRangeLimits:
        emit getFrequencySpeedRangeLimitsResponse(profile);
        return true;
    case VoltageSpeedRange:
        emit getVoltageSpeedRangeResponse(profile);
        return true;
    case VoltageSpeedRangeLimits:
        emit getVoltageSpeedRangeLimitsResponse(profile);
        return true;
    default:
        return false;
    }
}

bool SpeedCommanderObject::HandleUpdate(const ProtocolMessage& message) {
    bool read = true;
    switch (message.attribute) {
    case CurrentTargetSpeed:
        read = AnswerUpdate<uint32_t>(message,
                                      [this](uint32_t s) { emit updateCurrentTargetSpeed(s); });
        break;
    case VoltageTargetSpeed:
        read = AnswerUpdate<uint32_t>(message,
                                      [this](uint32_t s) { emit updateVoltageTargetSpeed(s); });
        break;
    case FrequencyTargetSpeed:
        read = AnswerUpdate<uint32_t>(message,
                                      [this](uint32_t s) { emit updateFrequencyTargetSpeed(s); });
        break;
    case EnableLineAsserted:
        if (!AnswerUpdate<uint8_t>(message, [this](uint8_t asserted) {
                emit updateEnableLineAsserted(asserted != 0);
            })) {
            BWL_LOG_READ_FAILURE("UpdateEnableLineAssertedHandler");
        }
        return true;
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
    if (!read) {
        BWL_LOG_READ_FAILURE("UpdateTargetSpeedHandler");
    }
    return true;
}

} // namespace communication::objects
