#pragma once

#include "QtApps/Common/Core/Communication/SystemWrapper.h"

#include <QObject>
#include <QStringList>

class QCoreApplication;

namespace common {
class ArchiveReaderInterface;
}
namespace firmwareUpdate {
class FirmwareUpdateController;
}
namespace speedResolution {
class SpeedResolutionCurrent;
class SpeedResolutionVoltage;
class SpeedResolutionFrequency;
} // namespace speedResolution

namespace communication {

class LinkStatsController;
class ProtocolComms;
class PumpAnalogFilterController;
class PumpApplicationSpeedController;
class PumpDetailsController;
class PumpNetworkController;
class PumpSession;
class PumpSessionController;
class PumpSettingsController;
class PumpSpeedRangeController;
class PumpValues;
class PumpValuesController;

/// Creates the controllers the screens talk to, and the speed-resolution objects between the
/// speed ranges and their controller, and publishes each controller as the singleton of its
/// "cpp." QML module. It is their QObject parent, lives on the main thread and deletes itself
/// when the application is about to quit.
///
/// The pump session it drives is created as a child of the comms object, so that it moves to the
/// comms thread with the link (see PumpSession).
class ControllerRegistry final : public QObject {
    Q_OBJECT

public:
    /// `portNames`: the serial ports the session scans; empty means every port the platform lists.
    /// `zipReader` reads firmware bundles; it lives on the comms thread.
    ControllerRegistry(ProtocolComms& comms, PumpValues& values,
                       common::ArchiveReaderInterface& zipReader, const QStringList& portNames,
                       QCoreApplication& application);
    ~ControllerRegistry() override;

    PumpSession& pumpSession() const { return *mPumpSession; }
    PumpAnalogFilterController& analogFilterController() const { return *mAnalogFilter; }
    PumpApplicationSpeedController& applicationSpeedController() const {
        return *mApplicationSpeed;
    }
    PumpDetailsController& pumpDetailsController() const { return *mDetails; }
    PumpSessionController& pumpSessionController() const { return *mSession; }
    PumpNetworkController& networkController() const { return *mNetwork; }
    PumpValuesController& valuesController() const { return *mValues; }
    PumpSpeedRangeController& speedRangeController() const { return *mSpeedRange; }
    PumpSettingsController& settingsController() const { return *mSettings; }
    firmwareUpdate::FirmwareUpdateController& firmwareUpdateController() const {
        return *mFirmwareUpdate;
    }
    LinkStatsController& linkStatsController() const { return *mLinkStats; }

private:
    wrappers::SystemWrapper mClock;
    PumpSession* mPumpSession;
    PumpAnalogFilterController* mAnalogFilter;
    PumpApplicationSpeedController* mApplicationSpeed;
    PumpDetailsController* mDetails;
    PumpSessionController* mSession;
    PumpNetworkController* mNetwork;
    PumpValuesController* mValues;
    speedResolution::SpeedResolutionCurrent* mCurrentResolution;
    speedResolution::SpeedResolutionVoltage* mVoltageResolution;
    speedResolution::SpeedResolutionFrequency* mFrequencyResolution;
    PumpSpeedRangeController* mSpeedRange;
    PumpSettingsController* mSettings;
    firmwareUpdate::FirmwareUpdateController* mFirmwareUpdate;
    LinkStatsController* mLinkStats;
};

} // namespace communication
