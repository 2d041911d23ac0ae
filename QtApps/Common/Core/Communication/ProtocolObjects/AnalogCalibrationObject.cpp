#include "AnalogCalibrationObject.h"

#include "ProxyAnswers.h"
#include "QtApps/Common/Logger/Log.h"

#include <QLocale>

namespace communication::objects {

namespace {

QString ShortestText(float value) {
    return QString::number(static_cast<double>(value), 'g', QLocale::FloatingPointShortest);
}

} // namespace

AnalogCalibrationObject::AnalogCalibrationObject(halyard::protocol::ProtocolInterface& protocol,
                                                 QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool AnalogCalibrationObject::GetCalibration(uint8_t attribute) {
    BWL_LOG_INFO("GetCalibration", QStringLiteral("GetCalibration attr:%1").arg(attribute));
    return SendEmpty(attribute, Operation::Get);
}

bool AnalogCalibrationObject::SetCalibration(uint8_t attribute, float slope, float offset) {
    BWL_LOG_INFO("SetCalibration", QStringLiteral("SetCalibration attr:%1 slope:%2 offset:%3")
                                       .arg(attribute)
                                       .arg(ShortestText(slope), ShortestText(offset)));
    if (attribute > kLastChannel) {
        return false;
    }
    return SendCompleteFields("SetCalibration", attribute, Operation::Set, slope, offset);
}

bool AnalogCalibrationObject::HandleTimeout(const ProtocolMessage& message) {
    RaiseTimeoutSignal(
        *this, message,
        {&AnalogCalibrationObject::getTimeout, &AnalogCalibrationObject::setTimeout});
    return true;
}

bool AnalogCalibrationObject::HandleResponse(const ProtocolMessage& message) {
    return HandleAnswer(message, true);
}

bool AnalogCalibrationObject::HandleRefusal(const ProtocolMessage& message) {
    return HandleAnswer(message, false);
}

bool AnalogCalibrationObject::HandlePumpRequest(const ProtocolMessage& /*message*/) {
    emit invalidType();
    return true;
}

bool AnalogCalibrationObject::HandleUnknownType(const ProtocolMessage& /*message*/) {
    emit invalidType();
    return true;
}

bool AnalogCalibrationObject::HandleAnswer(const ProtocolMessage& message, bool accepted) {
    const uint8_t attribute = message.attribute;
    if (message.operation == Operation::Set) {
        if (!accepted) {
            emit ackSetCalibration(false, attribute);
        } else if (attribute > kLastChannel) {
            emit invalidAttribute(attribute);
        } else {
            emit ackSetCalibration(true, attribute);
        }
        return true;
    }
    if (message.operation != Operation::Get) {
        emit invalidOperation();
        return true;
    }
    if (attribute > kLastChannel) {
        emit invalidAttribute(attribute);
        return true;
    }
    if (!accepted) {
        emit nakGet(attribute);
        return true;
    }
    halyard::protocol::PayloadReader reader = message.Reader();
    float slope = 0.0F;
    float offset = 0.0F;
    if (!reader.Read(slope) || !reader.Read(offset)) {
        LogReadFailure("HandleGetAck");
        emit invalidData(attribute);
        // Another request's answer can hold this one's id (ids are reused at once); counted as
        // no answer, the value asks again.
        HandleTimeout(message);
        return true;
    }
    emit ackGetCalibration(attribute, slope, offset);
    return true;
}

} // namespace communication::objects
