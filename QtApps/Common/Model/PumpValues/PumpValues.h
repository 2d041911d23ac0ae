#pragma once

#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAdcValues.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogCalibration.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterDataCurrent.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterDataVoltage.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterNumSamplesCurrent.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterNumSamplesCurrentLimits.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterNumSamplesVoltage.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterNumSamplesVoltageLimits.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpBusVoltage.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpInputCurrent.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpInputFrequency.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpInputVoltage.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpTemperature.h"
#include "QtApps/Common/Model/PumpValues/DeviceDetailsGetAll.h"
#include "QtApps/Common/Model/PumpValues/Logger/PumpLog.h"
#include "QtApps/Common/Model/PumpValues/Motor/MotorIsEnergized.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpAcceleration.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpActualSpeed.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpCelerationLimits.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpDeceleration.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpEncoderData.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpIsAligned.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueIndex.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueTargets.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkAnybusModule.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkAnybusVersion.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkFileSystemReset.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkIpConfig.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkLinkStatus.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkMacAddress.h"
#include "QtApps/Common/Model/PumpValues/PumpApplicationOverrideActive.h"
#include "QtApps/Common/Model/PumpValues/PumpApplicationSpeed.h"
#include "QtApps/Common/Model/PumpValues/PumpApplicationSpeedEnable.h"
#include "QtApps/Common/Model/PumpValues/PumpControlInput.h"
#include "QtApps/Common/Model/PumpValues/PumpCoverStatus.h"
#include "QtApps/Common/Model/PumpValues/PumpDetailsGetAll.h"
#include "QtApps/Common/Model/PumpValues/PumpDirection.h"
#include "QtApps/Common/Model/PumpValues/PumpFaults.h"
#include "QtApps/Common/Model/PumpValues/PumpHead.h"
#include "QtApps/Common/Model/PumpValues/PumpHeads.h"
#include "QtApps/Common/Model/PumpValues/PumpMaxApplicationSpeed.h"
#include "QtApps/Common/Model/PumpValues/PumpPlecPortCliEnable.h"
#include "QtApps/Common/Model/PumpValues/PumpPowerUsage.h"
#include "QtApps/Common/Model/PumpValues/PumpPrimeInputState.h"
#include "QtApps/Common/Model/PumpValues/PumpPrimeSpeed.h"
#include "QtApps/Common/Model/PumpValues/PumpReset.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpCurrentHysteresis.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpCurrentSpeedRange.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpCurrentSpeedRangeLimits.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpCurrentTargetSpeed.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpEnableLineAsserted.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpEnableLineSpeed.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpEnableLineSpeedLimits.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpFrequencyHysteresis.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpFrequencySpeedRange.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpFrequencySpeedRangeLimits.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpFrequencyTargetSpeed.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpVoltageHysteresis.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpVoltageSpeedRange.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpVoltageSpeedRangeLimits.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpVoltageTargetSpeed.h"

#include "QtApps/Common/Core/Communication/ProtocolCommsInterface.h"

#include <QObject>

#include <tuple>

namespace communication {

/// One object of every pump value, for the controllers and models: `values.get<PumpPrimeSpeed>()`.
/// Built on the comms object as its QObject child, with the values as its own children, so that
/// all of them move with the comms object to the thread where the proxies run.
class PumpValues final : public QObject {
    Q_OBJECT

    using Values = std::tuple<
        PumpAdcValues*, PumpAnalogCalibration*, PumpAnalogFilterDataCurrent*,
        PumpAnalogFilterDataVoltage*, PumpAnalogFilterNumSamplesCurrent*,
        PumpAnalogFilterNumSamplesCurrentLimits*, PumpAnalogFilterNumSamplesVoltage*,
        PumpAnalogFilterNumSamplesVoltageLimits*, PumpBusVoltage*, PumpInputCurrent*,
        PumpInputFrequency*, PumpInputVoltage*, PumpTemperature*, DeviceDetailsGetAll*, PumpLog*,
        MotorIsEnergized*, PumpAcceleration*, PumpActualSpeed*, PumpCelerationLimits*,
        PumpDeceleration*, PumpEncoderData*, PumpIsAligned*, PumpTorqueIndex*, PumpTorqueTargets*,
        PumpNetworkAnybusModule*, PumpNetworkAnybusVersion*, PumpNetworkFileSystemReset*,
        PumpNetworkIpConfig*, PumpNetworkLinkStatus*, PumpNetworkMacAddress*,
        PumpApplicationOverrideActive*, PumpApplicationSpeed*, PumpApplicationSpeedEnable*,
        PumpControlInput*, PumpCoverStatus*, PumpDetailsGetAll*, PumpDirection*, PumpFaults*,
        PumpHead*, PumpHeads*, PumpMaxApplicationSpeed*, PumpPlecPortCliEnable*, PumpPowerUsage*,
        PumpPrimeInputState*, PumpPrimeSpeed*, PumpReset*, PumpCurrentHysteresis*,
        PumpCurrentSpeedRange*, PumpCurrentSpeedRangeLimits*, PumpCurrentTargetSpeed*,
        PumpEnableLineAsserted*, PumpEnableLineSpeed*, PumpEnableLineSpeedLimits*,
        PumpFrequencyHysteresis*, PumpFrequencySpeedRange*, PumpFrequencySpeedRangeLimits*,
        PumpFrequencyTargetSpeed*, PumpVoltageHysteresis*, PumpVoltageSpeedRange*,
        PumpVoltageSpeedRangeLimits*, PumpVoltageTargetSpeed*>;

public:
    explicit PumpValues(ProtocolCommsInterface& comms);

    template <typename Value>
    Value& get() const {
        return *std::get<Value*>(mValues);
    }

private:
    Values mValues;
};

} // namespace communication
