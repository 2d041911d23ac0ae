#include "PumpApplicationSpeedController.h"

#include "QueuedCall.h"
#include "ReportedFigure.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <cstdlib>

namespace communication {

PumpApplicationSpeedController::PumpApplicationSpeedController(PumpValues& values, QObject* parent)
    : QObject(parent)
    , mValues(values) {
    connect(&values.get<PumpApplicationOverrideActive>(),
            &PumpApplicationOverrideActive::getApplicationOverrideActiveResponse, this,
            &PumpApplicationSpeedController::pumpApplicationOverrideActiveChanged,
            Qt::QueuedConnection);
    connect(&values.get<PumpMaxApplicationSpeed>(),
            &PumpMaxApplicationSpeed::getMaxApplicationSpeedResponse, this,
            &PumpApplicationSpeedController::pumpMaxApplicationSpeed_getMaxApplicationSpeedResponse,
            Qt::QueuedConnection);
    connect(&values.get<PumpApplicationSpeed>(), &PumpApplicationSpeed::getApplicationSpeedResponse,
            this, &PumpApplicationSpeedController::pumpApplicationSpeed_getApplicationSpeedResponse,
            Qt::QueuedConnection);
    connect(&values.get<PumpApplicationSpeedEnable>(),
            &PumpApplicationSpeedEnable::getApplicationSpeedEnableResponse, this,
            &PumpApplicationSpeedController::pumpApplicationSpeedEnable_getApplicationSpeedResponse,
            Qt::QueuedConnection);
}

void PumpApplicationSpeedController::subscribe() {
    callQueued(mValues.get<PumpApplicationOverrideActive>(), &PumpValueBase::subscribe);
    callQueued(mValues.get<PumpMaxApplicationSpeed>(), &PumpValueBase::subscribe);
    callQueued(mValues.get<PumpApplicationSpeed>(), &PumpValueBase::subscribe);
}

void PumpApplicationSpeedController::unsubscribe() {
    callQueued(mValues.get<PumpApplicationOverrideActive>(), &PumpValueBase::unsubscribe);
    callQueued(mValues.get<PumpMaxApplicationSpeed>(), &PumpValueBase::unsubscribe);
    callQueued(mValues.get<PumpApplicationSpeed>(), &PumpValueBase::unsubscribe);
}

void PumpApplicationSpeedController::getApplicationSpeed() {
    callQueued(mValues.get<PumpApplicationSpeed>(), &PumpApplicationSpeed::getApplicationSpeed);
}

bool PumpApplicationSpeedController::setApplicationSpeedDrpm(double speedDrpm) {
    const auto speed =
        requestedFigure<uint16_t>(speedDrpm, "ApplicationSpeed", "setApplicationSpeedDrpm");
    if (speed) {
        sendSpeed(*speed);
    }
    return speed.has_value();
}

// Anticlockwise is the negative speed; a speed of 0 goes as 0 either way.
void PumpApplicationSpeedController::sendSpeed(uint16_t speedDrpm) {
    const int32_t signedSpeed = mDirection == Anticlockwise ? -int32_t{speedDrpm} : speedDrpm;
    callQueued(mValues.get<PumpApplicationSpeed>(), &PumpApplicationSpeed::setApplicationSpeed,
               signedSpeed);
}

void PumpApplicationSpeedController::getApplicationSpeedEnable() {
    callQueued(mValues.get<PumpApplicationSpeedEnable>(),
               &PumpApplicationSpeedEnable::getApplicationSpeedEnable);
}

void PumpApplicationSpeedController::setApplicationSpeedEnable(bool enable) {
    callQueued(mValues.get<PumpApplicationSpeedEnable>(),
               &PumpApplicationSpeedEnable::setApplicationSpeedEnable, enable);
}

void PumpApplicationSpeedController::getApplicationOverrideActive() {
    callQueued(mValues.get<PumpApplicationOverrideActive>(),
               &PumpApplicationOverrideActive::getApplicationOverrideActive);
}

void PumpApplicationSpeedController::setApplicationOverrideActive(bool active) {
    callQueued(mValues.get<PumpApplicationOverrideActive>(),
               &PumpApplicationOverrideActive::setApplicationOverrideActive, active);
}

void PumpApplicationSpeedController::getMaxApplicationSpeed() {
    callQueued(mValues.get<PumpMaxApplicationSpeed>(),
               &PumpMaxApplicationSpeed::getMaxApplicationSpeed);
}

void PumpApplicationSpeedController::setMotorDirection(MotorDirection direction) {
    if (direction == mDirection) {
        return;
    }
    mDirection = direction;
    emit motorDirectionChanged();
    sendSpeed(mSpeedDrpm);
}

void PumpApplicationSpeedController::pumpApplicationOverrideActiveChanged(bool active) {
    mOverrideActive = active;
    emit applicationOverrideActiveChanged();
}

void PumpApplicationSpeedController::pumpMaxApplicationSpeed_getMaxApplicationSpeedResponse(
    int32_t speedDrpm) {
    mMaxSpeedDrpm = reportedFigure<uint16_t>(speedDrpm, "MaxApplicationSpeed");
    emit pumpMaxApplicationSpeedDrpmChanged();
}

// The sign is the direction; a speed of exactly 0 has none, so the last direction stays.
void PumpApplicationSpeedController::pumpApplicationSpeed_getApplicationSpeedResponse(
    int32_t speedDrpm) {
    const MotorDirection reported = speedDrpm < 0 ? Anticlockwise : Clockwise;
    if (speedDrpm != 0 && reported != mDirection) {
        mDirection = reported;
        emit motorDirectionChanged();
    }
    const uint16_t size = reportedFigure<uint16_t>(std::llabs(speedDrpm), "ApplicationSpeed");
    if (size != mSpeedDrpm) {
        mSpeedDrpm = size;
        emit pumpApplicationSpeedDrpmChanged();
    }
}

void PumpApplicationSpeedController::pumpApplicationSpeedEnable_getApplicationSpeedResponse(
    bool enabled) {
    mSpeedEnable = enabled;
    emit pumpApplicationSpeedEnableChanged();
}

} // namespace communication
