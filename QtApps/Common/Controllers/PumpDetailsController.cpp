#include "PumpDetailsController.h"

#include "QueuedCall.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

namespace communication {

PumpDetailsController::PumpDetailsController(PumpValues& values, PumpSession& session,
                                             QObject* parent)
    : QObject(parent)
    , mValues(values) {
    connect(&values.get<DeviceDetailsGetAll>(), &DeviceDetailsGetAll::getAllResponse, this,
            &PumpDetailsController::deviceDetailsUpdate, Qt::QueuedConnection);
    connect(&values.get<PumpDetailsGetAll>(), &PumpDetailsGetAll::getAllResponse, this,
            &PumpDetailsController::pumpDetailsUpdate, Qt::QueuedConnection);
    connect(&session, &PumpSession::protocolVersionChanged, this,
            &PumpDetailsController::versionChanged, Qt::QueuedConnection);
    connect(&session, &PumpSession::pumpConnectionChanged, this,
            &PumpDetailsController::onPumpConnectionChanged, Qt::QueuedConnection);
}

QString PumpDetailsController::deviceType() const {
    return mDeviceDetailsKnown ? objects::DeviceTypeText(mDeviceDetails.deviceType) : QString();
}

QString PumpDetailsController::appVersion() const {
    return mDeviceDetailsKnown ? mDeviceDetails.AppVersionText() : QString();
}

QString PumpDetailsController::pumpType() const {
    return mPumpDetailsKnown ? objects::DeviceTypeText(mPumpDetails.pumpType) : QString();
}

QString PumpDetailsController::headType() const {
    return mPumpDetailsKnown ? objects::PumpHeadCatalogueEntry(mPumpDetails.headType).name
                             : QString();
}

QString PumpDetailsController::motorType() const {
    return mPumpDetailsKnown ? objects::MotorTypeText(mPumpDetails.motorType) : QString();
}

void PumpDetailsController::deviceDetailsUpdate(const objects::DeviceDetails& details) {
    mDeviceDetails = details;
    mDeviceDetailsKnown = true;
    emit deviceDetailsChanged(mDeviceDetails);
}

void PumpDetailsController::pumpDetailsUpdate(const objects::PumpDetails& details) {
    mPumpDetails = details;
    mPumpDetailsKnown = true;
    emit pumpDetailsChanged(mPumpDetails);
}

void PumpDetailsController::versionChanged(halyard::SemanticVersion version) {
    mProtocolVersion =
        QStringLiteral("V%1.%2.%3").arg(version.major).arg(version.minor).arg(version.patch);
    emit protocolVersionChanged();
}

// Each session may be another pump: its identity is asked for afresh, and the last one's is not
// shown in the meantime.
void PumpDetailsController::onPumpConnectionChanged(bool connected) {
    if (connected) {
        callQueued(mValues.get<DeviceDetailsGetAll>(), &DeviceDetailsGetAll::getAll);
        callQueued(mValues.get<PumpDetailsGetAll>(), &PumpDetailsGetAll::getAll);
        return;
    }
    const bool hadDetails = mDeviceDetailsKnown || mPumpDetailsKnown;
    mDeviceDetails = {};
    mPumpDetails = {};
    mDeviceDetailsKnown = false;
    mPumpDetailsKnown = false;
    if (hadDetails) {
        emit deviceDetailsChanged(mDeviceDetails);
        emit pumpDetailsChanged(mPumpDetails);
    }
}

} // namespace communication
