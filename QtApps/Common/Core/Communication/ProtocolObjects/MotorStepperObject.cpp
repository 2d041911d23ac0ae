#include "MotorStepperObject.h"

#include "ProxyLog.h"

namespace communication::objects {

MotorStepperObject::MotorStepperObject(halyard::protocol::ProtocolInterface& protocol,
                                       QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

bool MotorStepperObject::GetTorqueIndex() {
    return SendEmpty(TorqueIndex, Operation::Get);
}
bool MotorStepperObject::GetTorqueTargets() {
    return SendEmpty(TorqueTargets, Operation::Get);
}

bool MotorStepperObject::SetTorqueIndex(uint8_t index) {
    if (!WriteFields(TorqueIndex, Operation::Set, index)) {
        BWL_LOG_WRITE_FAILURE("SetTorqueIndex");
    }
    return SendRequest();
}

bool MotorStepperObject::HandleTimeout(const ProtocolMessage& message) {
    if (message.operation == Operation::Get) {
        emit getTimeout(message.attribute);
    } else if (message.operation == Operation::Set) {
        emit setTimeout(message.attribute);
    }
    return true;
}

bool MotorStepperObject::HandleRefusal(const ProtocolMessage& message) {
    if (message.operation == Operation::Get) {
        emit ackGetResult(message.attribute);
    } else if (message.operation == Operation::Set) {
        emit nakSetResult(message.attribute);
    }
    return true;
}

bool MotorStepperObject::HandlePumpRequest(const ProtocolMessage& /*message*/) {
    return false;
}

bool MotorStepperObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        return HandleGetResponse(message);
    case Operation::Set:
        emit ackSetResult(message.attribute);
        return true;
    default:
        return false;
    }
}

bool MotorStepperObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case TorqueIndex: {
        uint8_t index = 0;
        if (!ReadValue(message, index)) {
            BWL_LOG_READ_FAILURE("GetTorqueIndexResponseHandler");
            return false;
        }
        emit getTorqueIndexResponse(index);
        return true;
    }
    case TorqueTargets: {
        // One float per torque index, as many as fit; a trailing part of a float is ignored.
        QList<float> targetCurrentsA;
        halyard::protocol::PayloadReader reader = message.Reader();
        float target = 0.0F;
        while (reader.Read(target)) {
            targetCurrentsA.append(target);
        }
        if (targetCurrentsA.isEmpty()) {
            BWL_LOG_READ_FAILURE("GetTorqueTargetsResponseHandler");
            return false;
        }
        emit getTorqueTargetsResponse(targetCurrentsA);
        return true;
    }
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
