#include "ControllerRegistry.h"

#include "FirmwareUpdateController.h"
#include "LinkStatsController.h"
#include "PumpAnalogFilterController.h"
#include "PumpApplicationSpeedController.h"
#include "PumpDetailsController.h"
#include "PumpNetworkController.h"
#include "PumpSessionController.h"
#include "PumpSettingsController.h"
#include "PumpSpeedRangeController.h"
#include "PumpValuesController.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionCurrent.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionFrequency.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionVoltage.h"

#include <QCoreApplication>

namespace communication {

// Created in this order, and published in the order of their modules' registration.
ControllerRegistry::ControllerRegistry(ProtocolComms& comms, PumpValues& values,
                                       common::ArchiveReaderInterface& zipReader,
                                       const QStringList& portNames, QCoreApplication& application)
    : mPumpSession(new PumpSession(comms, portNames, &comms))
    , mAnalogFilter(new PumpAnalogFilterController(values, mClock, this))
    , mApplicationSpeed(new PumpApplicationSpeedController(values, this))
    , mDetails(new PumpDetailsController(values, *mPumpSession, this))
    , mSession(new PumpSessionController(*mPumpSession, this))
    , mNetwork(new PumpNetworkController(values, this))
    , mValues(new PumpValuesController(values, *mDetails, this))
    , mCurrentResolution(
          new speedResolution::SpeedResolutionCurrent(&values.get<PumpCurrentSpeedRange>(), this))
    , mVoltageResolution(
          new speedResolution::SpeedResolutionVoltage(&values.get<PumpVoltageSpeedRange>(), this))
    , mFrequencyResolution(new speedResolution::SpeedResolutionFrequency(
          &values.get<PumpFrequencySpeedRange>(), this))
    , mSpeedRange(new PumpSpeedRangeController(values, *mCurrentResolution, *mVoltageResolution,
                                               *mFrequencyResolution, this))
    , mSettings(new PumpSettingsController(values, this))
    , mFirmwareUpdate(new firmwareUpdate::FirmwareUpdateController(
          zipReader, comms.protocolObjects(), values, *mSession, *mDetails, this))
    , mLinkStats(new LinkStatsController(comms, this)) {
    PumpAnalogFilterController::publish(mAnalogFilter);
    PumpApplicationSpeedController::publish(mApplicationSpeed);
    PumpDetailsController::publish(mDetails);
    firmwareUpdate::FirmwareUpdateController::publish(mFirmwareUpdate);
    PumpNetworkController::publish(mNetwork);
    PumpSessionController::publish(mSession);
    PumpSettingsController::publish(mSettings);
    PumpValuesController::publish(mValues);
    PumpSpeedRangeController::publish(mSpeedRange);
    LinkStatsController::publish(mLinkStats);
    connect(&application, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
}

ControllerRegistry::~ControllerRegistry() = default;

} // namespace communication
