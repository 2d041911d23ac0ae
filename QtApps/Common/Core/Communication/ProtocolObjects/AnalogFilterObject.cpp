#include "AnalogFilterObject.h"

#include "ProxyAnswers.h"

namespace communication::objects {

AnalogFilterObject::AnalogFilterObject(halyard::protocol::ProtocolInterface& protocol,
                                       QObject* parent)
    : ProtocolObjectSubscribeInterface(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool AnalogFilterObject::GetNumSamplesCurrent() {
    return SendEmpty(NumSamplesCurrent, Operation::Get);
}

bool AnalogFilterObject::GetNumSamplesCurrentLimits() {
    return SendEmpty(NumSamplesCurrentLimits, Operation::Get);
}

bool AnalogFilterObject::GetNumSamplesVoltage() {
    return SendEmpty(NumSamplesVoltage, Operation::Get);
}

bool AnalogFilterObject::GetNumSamplesVoltageLimits() {
    return SendEmpty(NumSamplesVoltageLimits, Operation::Get);
}

bool AnalogFilterObject::SetNumSamplesCurrent(uint32_t numSamples) {
    return SendFields("SetNumSamplesCurrent", NumSamplesCurrent, Operation::Set, numSamples);
}

bool AnalogFilterObject::SetNumSamplesVoltage(uint32_t numSamples) {
    return SendFields("SetNumSamplesVoltage", NumSamplesVoltage, Operation::Set, numSamples);
}

bool AnalogFilterObject::Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    return IsPublished(attribute) && SendSubscribe(attribute, perdiodMs, onChange);
}

bool AnalogFilterObject::Unsubscribe(uint8_t attribute) {
    return IsPublished(attribute) && SendUnsubscribe(attribute);
}

bool AnalogFilterObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(*this, message,
                       {&AnalogFilterObject::getTimeout, &AnalogFilterObject::setTimeout});
    return true;
}

bool AnalogFilterObject::HandleResponse(const ProtocolMessage& message) {
    return HandleAnswer(message, true);
}

bool AnalogFilterObject::HandleRefusal(const ProtocolMessage& message) {
    return HandleAnswer(message, false);
}

bool AnalogFilterObject::HandleUnknownType(const ProtocolMessage& /*message*/) {
    emit invalidType();
    return true;
}

bool AnalogFilterObject::HandleAnswer(const ProtocolMessage& message, bool accepted) {
    const uint8_t attribute = message.attribute;
    switch (message.operation) {
    case Operation::Sub:
    case Operation::Unsub:
        // Swallowed: the filter controller watches the data itself.
        return true;
    case Operation::Set:
        if (!accepted) {
            emit ackSetNumSamples(attribute, false);
        } else if (attribute != NumSamplesCurrent && attribute != NumSamplesVoltage) {
            emit invalidAttribute(attribute);
        } else {
            emit ackSetNumSamples(attribute, true);
        }
        return true;
    case Operation::Get:
        HandleGetAnswer(message, accepted);
        return true;
    default:
        emit invalidOperation();
        return true;
    }
}

void AnalogFilterObject::HandleGetAnswer(const ProtocolMessage& message, bool accepted) {
    const uint8_t attribute = message.attribute;
    const bool isCount = attribute == NumSamplesCurrent || attribute == NumSamplesVoltage;
    const bool isLimits =
        attribute == NumSamplesCurrentLimits || attribute == NumSamplesVoltageLimits;
    if (!isCount && !isLimits) {
        emit invalidAttribute(attribute);
        return;
    }
    if (!accepted) {
        emit nakGet(attribute);
        return;
    }
    halyard::protocol::PayloadReader reader = message.Reader();
    if (isCount) {
        uint32_t numSamples = 0;
        if (!reader.Read(numSamples)) {
            LogReadFailure("HandleGetNumSamples");
            emit invalidData(attribute);
            HandleTimeout(message); // asked again, as for any answer that cannot be read
            return;
        }
        emit ackGetNumSamples(attribute, numSamples);
        return;
    }
    uint32_t minimum = 0;
    uint32_t maximum = 0;
    if (!reader.Read(minimum) || !reader.Read(maximum)) {
        LogReadFailure("HandleGetNumSamplesLimits");
        emit invalidData(attribute);
        HandleTimeout(message);
        return;
    }
    emit ackGetNumSamplesLimits(attribute, minimum, maximum);
}

// The pump's updates get no answer from this proxy, whatever they hold.
bool AnalogFilterObject::HandlePumpRequest(const ProtocolMessage& message) {
    const uint8_t attribute = message.attribute;
    if (message.operation != Operation::Update) {
        emit invalidOperation();
        return true;
    }
    if (!IsPublished(attribute)) {
        emit invalidAttribute(attribute);
        return true;
    }
    halyard::protocol::PayloadReader reader = message.Reader();
    AnalogFilterData data;
    if (!reader.Read(data.input) || !reader.Read(data.output) || !reader.Read(data.inputVariance) ||
        !reader.Read(data.outputVariance)) {
        LogReadFailure("HandleUpdate");
        emit invalidData(attribute);
        return true;
    }
    emit updateFilterData(attribute, data);
    return true;
}

} // namespace communication::objects
