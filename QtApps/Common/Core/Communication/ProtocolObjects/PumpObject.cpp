#include "PumpObject.h"

#include "ProxyLog.h"

namespace communication::objects {

PumpObject::PumpObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

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
bool PumpObject::SendSet(uint8_t attribute, uint8_t value, const char* function,
                         bool sendIfIncomplete) {
    if (!WriteFields(attribute, Operation::Set, value)) {
        BWL_LOG_WRITE_FAILURE(function);
        if (!sendIfIncomplete) {
            return false;
        }
    }
    return SendRequest();
}

bool PumpObject::RequestSetMotorFault(uint8_t faultType) {
    return SendSet(Faults, faultType, "RequestSetMotorFault", false);
}

bool PumpObject::RequestSetControlInput(uint8_t controlInput) {
    return SendSet(ControlInput, controlInput, "RequestSetControlInput", true);
}

bool PumpObject::RequestSetApplicationSpeed(uint32_t applicationSpeedDrpm) {
    if (!WriteFields(ApplicationSpeed, Operation::Set, applicationSpeedDrpm)) {
        BWL_LOG_WRITE_FAILURE("RequestSetApplicationSpeed");
    }
    return SendRequest();
}

bool PumpObject::RequestSetApplicationSpeedEnable(uint8_t enable) {
    return SendSet(ApplicationSpeedEnable, enable, "RequestSetApplicationSpeedEnable", true);
}

bool PumpObject::RequestSetApplicationOverrideActive(uint8_t active) {
    return SendSet(ApplicationOverrideActive, active, "RequestSetApplicationOverrideActive", false);
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
    RaiseTimeoutSignal(*this, message, &PumpObject::getTimeout, &PumpObject::setTimeout);
    return true;
}

bool PumpObject::HandleRefusal(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        emit ackGetResult(message.attribute);
        break;
    case Operation::Set:
        // Deliberately the same signal as an accepted set.
        emit ackSetResult(message.attribute);
        break;
    case Operation::Sub:
        emit ackSubscribeResult(false, message.attribute);
        break;
    default:
        break;
    }
    return true;
}

bool PumpObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        return HandleGetResponse(message);
    case Operation::Set:
        if (message.attribute == Faults) {
            uint8_t faultType = 0;
            if (!ReadValue(message, faultType)) {
                BWL_LOG_READ_FAILURE("SetFaultResponseHandler");
                return false;
            }
            emit ackSetFaultResult(static_cast<MotorFaultType>(faultType));
            return true;
        }
        emit ackSetResult(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(true, message.attribute);
        return true;
    default:
        // The fault acknowledgement's answer among them.
        return false;
    }
}

bool PumpObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case ControlInput: {
        uint8_t controlInput = 0;
        if (!ReadValue(message, controlInput) ||
            controlInput >= static_cast<uint8_t>(halyard::pump::ControlInput::Count)) {
            BWL_LOG_READ_FAILURE("GetControlInputResponseHandler");
            return false;
        }
        emit getControlInputResponse(static_cast<halyard::pump::ControlInput>(controlInput));
        return true;
    }
    case ApplicationSpeed: {
        int32_t speedDrpm = 0;
        if (!ReadValue(message, speedDrpm)) {
            BWL_LOG_READ_FAILURE("GetApplicationSpeedResponseHandler");
            return false;
        }
        emit getApplicationSpeedResponse(speedDrpm);
        return true;
    }
    case ApplicationSpeedEnable: {
        uint8_t enable = 0;
        if (!ReadValue(message, enable)) {
            BWL_LOG_READ_FAILURE("GetApplicationSpeedEnableResponseHandler");
            return false;
        }
        emit getApplicationSpeedEnableResponse(enable != 0);
        return true;
    }
    case ApplicationOverrideActive: {
        uint8_t active = 0;
        if (!ReadValue(message, active)) {
            BWL_LOG_READ_FAILURE("GetApplicationOverrideActiveResponseHandler");
            return false;
        }
        emit getApplicationOverrideActiveResponse(active != 0);
        return true;
    }
    case MaxApplicationSpeed: {
        uint32_t speedDrpm = 0;
        if (!ReadValue(message, speedDrpm)) {
            BWL_LOG_READ_FAILURE("GetMaxApplicationSpeedResponseHandler");
            return false;
        }
        emit getMaxApplicationSpeedResponse(speedDrpm);
        return true;
    }
    default:
        return false;
    }
}

bool PumpObject::HandleUpdate(const ProtocolMessage& message) {
    // Short updates of the 4-byte attributes (3, 6, 9) are answered without a log line; the
    // one-byte and fault updates are also logged.
    switch (message.attribute) {
    case Faults:
        if (!AnswerUpdate<uint32_t>(message,
                                    [this](uint32_t faults) { emit updateFaults(faults); })) {
            BWL_LOG_READ_FAILURE("UpdateHandler");
        }
        return true;
    case ApplicationSpeed:
        AnswerUpdate<uint32_t>(message,
                               [this](uint32_t speed) { emit updateApplicationSpeed(speed); });
        return true;
    case ApplicationOverrideActive:
        if (!AnswerUpdate<uint8_t>(message, [this](uint8_t active) {
                emit updateApplicationOverrideActive(active != 0);
            })) {
            BWL_LOG_READ_FAILURE("UpdateHandler");
        }
        return true;
    case MaxApplicationSpeed:
        AnswerUpdate<uint32_t>(message,
                               [this](uint32_t speed) { emit updateMaxApplicationSpeed(speed); });
        return true;
    case CoverStatus:
        if (!AnswerUpdate<uint8_t>(message,
                                   [this](uint8_t open) { emit updateCoverStatus(open != 0); })) {
            BWL_LOG_READ_FAILURE("UpdateHandler");
        }
        return true;
    case Direction:
        if (!AnswerUpdate<uint8_t>(message, [this](uint8_t direction) {
                emit updateDirection(static_cast<halyard::Direction>(direction));
            })) {
            BWL_LOG_READ_FAILURE("UpdateHandler");
        }
        return true;
    case PowerUsage:
        AnswerUpdate<float>(message, [this](float watts) { emit updatePowerUsage(watts); });
        return true;
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
