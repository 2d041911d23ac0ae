#include "MotorObject.h"

#include "ProxyLog.h"

namespace communication::objects {

MotorObject::MotorObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

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
    if (!WriteFields(Acceleration, Operation::Set, accelerationRpmPerSec)) {
        BWL_LOG_WRITE_FAILURE("SetAcceleration");
    }
    return SendRequest();
}

bool MotorObject::SetDeceleration(float decelerationRpmPerSec) {
    if (!WriteFields(Deceleration, Operation::Set, decelerationRpmPerSec)) {
        BWL_LOG_WRITE_FAILURE("SetDeceleration");
    }
    return SendRequest();
}

bool MotorObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsPublished(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool MotorObject::Unsubscribe(uint8_t attribute) {
    return IsPublished(attribute) && SendUnsubscribe(attribute);
}

bool MotorObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message, &MotorObject::getTimeout, &MotorObject::setTimeout);
    return true;
}

bool MotorObject::HandleRefusal(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        emit ackGetResult(message.attribute);
        break;
    case Operation::Set:
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

bool MotorObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        return HandleGetResponse(message);
    case Operation::Set:
        emit ackSetResult(message.attribute);
        return true;
    case Operation::Sub:
        emit ackSubscribeResult(true, message.attribute);
        return true;
    case Operation::Unsub:
        return true;
    default:
        return false;
    }
}

bool MotorObject::HandleGetResponse(const ProtocolMessage& message) {
    halyard::protocol::PayloadReader reader = message.Reader();
    switch (message.attribute) {
    case EncoderData: {
        halyard::encoder::EncoderData data;
        // The readout has a fixed size: an answer with bytes left over is not one.
        if (!reader.Read(data.count) || !reader.Read(data.revolutions) ||
            !reader.Read(data.status) || !reader.Read(data.warnings) || !reader.Read(data.errors) ||
            !reader.Read(data.fieldStrength) || reader.Remaining() != 0) {
            BWL_LOG_READ_FAILURE("GetEncoderDataResponseHandler");
            return false;
        }
        emit getEncoderDataResponse(data);
        return true;
    }
    case Acceleration: {
        float acceleration = 0.0F;
        if (!reader.Read(acceleration)) {
            BWL_LOG_READ_FAILURE("GetAccelerationResponseHandler");
            return false;
        }
        emit getAccelerationResponse(acceleration);
        return true;
    }
    case Deceleration: {
        float deceleration = 0.0F;
        if (!reader.Read(deceleration)) {
            BWL_LOG_READ_FAILURE("GetDecelerationResponseHandler");
            return false;
        }
        emit getDecelerationResponse(deceleration);
        return true;
    }
    case CelerationLimits: {
        objects::CelerationLimits limits;
        if (!reader.Read(limits.minimumRpmPerSec) || !reader.Read(limits.maximumRpmPerSec)) {
            BWL_LOG_READ_FAILURE("GetCelerationLimitsResponseHandler");
            return false;
        }
        emit getCelerationLimitsResponse(limits);
        return true;
    }
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

bool MotorObject::HandleUpdate(const ProtocolMessage& message) {
    switch (message.attribute) {
    case ActualSpeed:
        if (!AnswerUpdate<int32_t>(message,
                                   [this](int32_t speed) { emit updateActualSpeed(speed); })) {
            BWL_LOG_READ_FAILURE("ActualSpeedUpdateHandler");
        }
        return true;
    case Aligned:
        AnswerUpdate<uint8_t>(message,
                              [this](uint8_t aligned) { emit updateIsAligned(aligned != 0); });
        return true;
    case Energised:
        AnswerUpdate<uint8_t>(
            message, [this](uint8_t energised) { emit updateIsEnergized(energised != 0); });
        return true;
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
