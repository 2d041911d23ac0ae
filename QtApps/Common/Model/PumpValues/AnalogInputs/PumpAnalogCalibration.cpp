#include "PumpAnalogCalibration.h"

#include "QtApps/Common/Logger/Log.h"

namespace communication {

using objects::AnalogCalibrationObject;
using Retries = AttributeRetries<AnalogCalibrationObject::kLastChannel + 1>;

PumpAnalogCalibration::PumpAnalogCalibration(ProtocolObjectContainer& container)
    : mProxy(container.get<AnalogCalibrationObject>()) {
    moveToThread(container.thread());
    connect(&mProxy, &AnalogCalibrationObject::ackSetCalibration, this,
            &PumpAnalogCalibration::onSetCalibrationAckResult);
    connect(&mProxy, &AnalogCalibrationObject::setTimeout, this,
            &PumpAnalogCalibration::onSetCalibrationTimeout);
    connect(&mProxy, &AnalogCalibrationObject::ackGetCalibration, this,
            &PumpAnalogCalibration::onGetCalibrationAckResult);
    connect(&mProxy, &AnalogCalibrationObject::getTimeout, this,
            &PumpAnalogCalibration::onGetCalibrationTimeout);
}

void PumpAnalogCalibration::reportError(const logger::Site& site, const QString& text) {
    logger::write(logger::Level::Warn, site, text);
    emit error(text);
}

void PumpAnalogCalibration::onSetCalibration(uint8_t attribute, float slope, float offset) {
    if (!Retries::isValid(attribute)) {
        reportError("onSetCalibration", QStringLiteral("Invalid onSetCalibration attribute"));
        return;
    }
    mRequested[attribute] = {slope, offset};
    mSetRetries.answered(attribute);
    if (!mProxy.SetCalibration(attribute, slope, offset)) {
        reportError("onSetCalibration",
                    QStringLiteral("Error calling AnalogCalibrationObject.SetCalibration"));
    }
}

void PumpAnalogCalibration::onGetCalibration(uint8_t attribute) {
    if (!Retries::isValid(attribute)) {
        reportError("onGetCalibration", QStringLiteral("Invalid onGetCalibration attribute"));
        return;
    }
    mGetRetries.answered(attribute);
    if (!mProxy.GetCalibration(attribute)) {
        reportError("onGetCalibration",
                    QStringLiteral("Error calling AnalogCalibrationObject.GetCalibration"));
    }
}

void PumpAnalogCalibration::onSetCalibrationAckResult(bool success, uint8_t attribute) {
    if (!Retries::isValid(attribute)) {
        return;
    }
    mSetRetries.answered(attribute);
    if (!success) {
        reportError("onSetCalibrationAckResult", QStringLiteral("Pump returned nak for set"));
        return;
    }
    emit setCalibrationResult(attribute);
    onGetCalibration(attribute);
}

void PumpAnalogCalibration::onSetCalibrationTimeout(uint8_t attribute) {
    if (!Retries::isValid(attribute)) {
        return;
    }
    if (!mSetRetries.mayRetry(attribute)) {
        BWL_LOG_WARN(
            "onSetCalibrationTimeout",
            QStringLiteral("AnalogCalibrationObject.SetCalibration attr:%1, no response, aborting")
                .arg(attribute));
        return;
    }
    const Calibration& requested = mRequested[attribute];
    if (!mProxy.SetCalibration(attribute, requested.slope, requested.offset)) {
        reportError("onSetCalibrationTimeout",
                    QStringLiteral("Error retrying AnalogCalibrationObject.SetCalibration"));
    }
}

void PumpAnalogCalibration::onGetCalibrationAckResult(uint8_t attribute, float slope,
                                                      float offset) {
    if (Retries::isValid(attribute)) {
        mGetRetries.answered(attribute);
    }
    emit getCalibrationResult(attribute, slope, offset);
}

void PumpAnalogCalibration::onGetCalibrationTimeout(uint8_t attribute) {
    if (!Retries::isValid(attribute)) {
        return;
    }
    if (!mGetRetries.mayRetry(attribute)) {
        BWL_LOG_WARN(
            "onGetCalibrationTimeout",
            QStringLiteral("AnalogCalibrationObject.GetCalibration attr:%1, no response, aborting")
                .arg(attribute));
        return;
    }
    if (!mProxy.GetCalibration(attribute)) {
        reportError("onGetCalibrationTimeout",
                    QStringLiteral("Error retrying AnalogCalibrationObject.GetCalibration"));
    }
}

} // namespace communication
