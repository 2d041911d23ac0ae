#include "PumpValuesController.h"

#include "PumpDetailsController.h"
#include "QueuedCall.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"

namespace communication {

PumpValuesController::PumpValuesController(PumpValues& values, PumpDetailsController& details,
                                           QObject* parent)
    : QObject(parent)
    , mValues(values)
    , mDetails(details) {
    const auto feed = [this](auto& value, auto signal, auto slot) {
        connect(&value, signal, this, slot, Qt::QueuedConnection);
    };
    feed(values.get<PumpActualSpeed>(), &PumpActualSpeed::actualSpeedChanged,
         &PumpValuesController::pumpActualSpeed_actualSpeedChanged);
    feed(values.get<PumpBusVoltage>(), &PumpBusVoltage::busVoltageChanged,
         &PumpValuesController::pumpBusVoltage_busVoltageChanged);
    feed(values.get<PumpCoverStatus>(), &PumpCoverStatus::coverStatusChanged,
         &PumpValuesController::pumpCoverStatus_coverStatusChanged);
    feed(values.get<PumpInputCurrent>(), &PumpInputCurrent::inputCurrentChanged,
         &PumpValuesController::pumpInputCurrent_inputCurrentChanged);
    feed(values.get<PumpInputFrequency>(), &PumpInputFrequency::inputFrequencyChanged,
         &PumpValuesController::pumpInputFrequency_inputFrequencyChanged);
    feed(values.get<PumpInputVoltage>(), &PumpInputVoltage::inputVoltageChanged,
         &PumpValuesController::pumpInputVoltage_inputVoltageChanged);
    feed(values.get<PumpEnableLineAsserted>(), &PumpEnableLineAsserted::enableLineAssertedChanged,
         &PumpValuesController::pumpEnableLineAsserted_enableLineAssertedUpdate);
    feed(values.get<PumpTemperature>(), &PumpTemperature::tempChanged,
         &PumpValuesController::pumpTemperature_tempChanged);
    feed(values.get<PumpPrimeInputState>(), &PumpPrimeInputState::primeInputStateChanged,
         &PumpValuesController::pumpPrimeInputState_primeInputStateChanged);
    feed(values.get<PumpDirection>(), &PumpDirection::directionChanged,
         &PumpValuesController::pumpDirection_directionChanged);
    feed(values.get<PumpPowerUsage>(), &PumpPowerUsage::powerUsageChanged,
         &PumpValuesController::pumpPowerUsage_powerUsageChanged);
    feed(values.get<MotorIsEnergized>(), &MotorIsEnergized::isEnergizedChanged,
         &PumpValuesController::motorEnergized_motorEnergizedChanged);
    connect(&details, &PumpDetailsController::pumpDetailsChanged, this,
            &PumpValuesController::pumpDetailsController_onPumpDetailsChanged);
}

QString PumpValuesController::direction() const {
    return directionIsForward() ? tr("Forward") : tr("Reverse");
}

void PumpValuesController::acknowledgeFaults() {
    callQueued(mValues.get<PumpFaults>(), &PumpFaults::ackFaults);
}

void PumpValuesController::getEncoderData() {
    callQueued(mValues.get<PumpEncoderData>(), &PumpEncoderData::getEncoderData);
}

void PumpValuesController::subscribe() {
    if (!mPumpDetailsReceived) {
        mSubscribePending = true;
        return;
    }
    mSubscribePending = false;
    subscribeAll(true);
}

void PumpValuesController::unsubscribe() {
    mSubscribePending = false;
    if (mPumpDetailsReceived) {
        subscribeAll(false);
    }
}

void PumpValuesController::subscribeAll(bool subscribe) {
    const auto apply = [subscribe](PumpValueBase& value) {
        callQueued(value, subscribe ? &PumpValueBase::subscribe : &PumpValueBase::unsubscribe);
    };
    apply(mValues.get<PumpActualSpeed>());
    apply(mValues.get<PumpBusVoltage>());
    apply(mValues.get<PumpCoverStatus>());
    apply(mValues.get<PumpEnableLineAsserted>());
    apply(mValues.get<PumpTemperature>());
    apply(mValues.get<PumpPrimeInputState>());
    apply(mValues.get<PumpDirection>());
    apply(mValues.get<PumpPowerUsage>());
    apply(mValues.get<MotorIsEnergized>());
    apply(mValues.get<PumpFaults>());
    // A network pump takes its speed over the network: it has no analog inputs to stream.
    if (!mIsNetworkPump) {
        apply(mValues.get<PumpInputCurrent>());
        apply(mValues.get<PumpInputVoltage>());
        apply(mValues.get<PumpInputFrequency>());
    }
}

void PumpValuesController::pumpDetailsController_onPumpDetailsChanged(
    const objects::PumpDetails& details) {
    // The details controller forgets a pump that went away; its subscriptions went with it.
    if (!mDetails.pumpDetailsKnown()) {
        mPumpDetailsReceived = false;
        mSubscribePending = false;
        return;
    }
    mIsNetworkPump = details.isNetworkPump != 0;
    mPumpDetailsReceived = true;
    emit isNetworkPumpChanged();
    if (mSubscribePending) {
        subscribe();
    }
}

void PumpValuesController::pumpActualSpeed_actualSpeedChanged(int32_t speedDrpm) {
    mActualSpeedDrpm = speedDrpm;
    emit pumpActualSpeedChanged();
}

void PumpValuesController::pumpBusVoltage_busVoltageChanged(float busVoltageMv) {
    mBusVoltageMv = busVoltageMv;
    emit pumpBusVoltageChanged();
}

void PumpValuesController::pumpCoverStatus_coverStatusChanged(bool coverOpen) {
    mCoverOpen = coverOpen;
    emit pumpCoverStatusChanged();
}

void PumpValuesController::pumpInputCurrent_inputCurrentChanged(float currentUa) {
    mInputCurrentUa = currentUa;
    emit pumpInputCurrentChanged();
}

void PumpValuesController::pumpInputFrequency_inputFrequencyChanged(float frequencyHz) {
    mInputFrequencyHz = frequencyHz;
    emit pumpInputFrequencyChanged();
}

void PumpValuesController::pumpInputVoltage_inputVoltageChanged(float voltageMv) {
    mInputVoltageMv = voltageMv;
    emit pumpInputVoltageChanged();
}

void PumpValuesController::pumpEnableLineAsserted_enableLineAssertedUpdate(bool asserted) {
    mEnableLineAsserted = asserted;
    emit enableLineAssertedChanged();
}

void PumpValuesController::pumpTemperature_tempChanged(float temperatureC) {
    mTemperatureC = temperatureC;
    emit pumpTempChanged();
}

void PumpValuesController::pumpPrimeInputState_primeInputStateChanged(bool state) {
    mPrimeInputState = state;
    emit pumpPrimeInputStateChanged();
}

void PumpValuesController::pumpDirection_directionChanged(halyard::Direction direction) {
    mDirection = direction;
    emit directionChanged();
}

void PumpValuesController::pumpPowerUsage_powerUsageChanged(float powerUsageW) {
    mPowerUsageW = powerUsageW;
    emit powerUsageChanged();
}

void PumpValuesController::motorEnergized_motorEnergizedChanged(bool isEnergized) {
    mMotorEnergized = isEnergized;
    emit isEnergizedChanged();
}

} // namespace communication
