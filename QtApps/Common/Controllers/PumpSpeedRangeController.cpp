#include "PumpSpeedRangeController.h"

#include "QueuedCall.h"
#include "ReportedFigure.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionBase.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionFrequency.h"

namespace communication {

using objects::QSpeedRangeProfile;

PumpSpeedRangeController::PumpSpeedRangeController(
    PumpValues& values, speedResolution::SpeedResolutionBase& currentResolution,
    speedResolution::SpeedResolutionBase& voltageResolution,
    speedResolution::SpeedResolutionFrequency& frequencyResolution, QObject* parent)
    : QObject(parent)
    , mValues(values) {
    using Self = PumpSpeedRangeController;
    const auto feed = [this](auto& source, auto signal, auto slot) {
        connect(&source, signal, this, slot, Qt::QueuedConnection);
    };
    feed(values.get<PumpVoltageTargetSpeed>(), &PumpVoltageTargetSpeed::voltageTargetSpeedChanged,
         &Self::pumpVoltageTargetSpeed_targetSpeedChanged);
    feed(values.get<PumpCurrentTargetSpeed>(), &PumpCurrentTargetSpeed::currentTargetSpeedChanged,
         &Self::pumpCurrentTargetSpeed_targetSpeedChanged);
    feed(values.get<PumpFrequencyTargetSpeed>(),
         &PumpFrequencyTargetSpeed::frequencyTargetSpeedChanged,
         &Self::pumpFrequencyTargetSpeed_targetSpeedChanged);
    feed(voltageResolution, &speedResolution::SpeedResolutionBase::speedResolutionUpdate,
         &Self::speedResolutionVoltage_speedResolutionChanged);
    feed(currentResolution, &speedResolution::SpeedResolutionBase::speedResolutionUpdate,
         &Self::speedResolutionCurrent_speedResolutionChanged);
    feed(frequencyResolution, &speedResolution::SpeedResolutionFrequency::speedResolutionUpdate,
         &Self::speedResolutionFrequency_speedResolutionChanged);
    feed(values.get<PumpEnableLineSpeed>(), &PumpEnableLineSpeed::getEnableLineSpeedResponse,
         &Self::pumpEnableLineSpeed_getEnableLineSpeedResponse);
    feed(values.get<PumpEnableLineSpeedLimits>(),
         &PumpEnableLineSpeedLimits::onGetEnableLineSpeedLimitsResponse,
         &Self::pumpEnableLineLimits_getEnableLineLimitResponse);
    feed(values.get<PumpCurrentSpeedRange>(), &PumpSpeedRangeBase::getSpeedRangeResponse,
         &Self::pumpCurrentSpeedRange_getSpeedRangeResponse);
    feed(values.get<PumpCurrentSpeedRangeLimits>(),
         &PumpSpeedRangeLimitsBase::getSpeedRangeLimitsResponse,
         &Self::pumpCurrentSpeedRangeLimits_getSpeedRangeLimitsResponse);
    feed(values.get<PumpFrequencySpeedRange>(), &PumpSpeedRangeBase::getSpeedRangeResponse,
         &Self::pumpFrequencySpeedRange_getSpeedRangeResponse);
    feed(values.get<PumpFrequencySpeedRangeLimits>(),
         &PumpSpeedRangeLimitsBase::getSpeedRangeLimitsResponse,
         &Self::pumpFrequencySpeedRangeLimits_getSpeedRangeLimitsResponse);
    feed(values.get<PumpVoltageSpeedRange>(), &PumpSpeedRangeBase::getSpeedRangeResponse,
         &Self::pumpVoltageSpeedRange_getSpeedRangeResponse);
    feed(values.get<PumpVoltageSpeedRangeLimits>(),
         &PumpSpeedRangeLimitsBase::getSpeedRangeLimitsResponse,
         &Self::pumpVoltageSpeedRangeLimits_getSpeedRangeLimitsResponse);
}

void PumpSpeedRangeController::subscribe() {
    callQueued(mValues.get<PumpCurrentTargetSpeed>(), &PumpValueBase::subscribe);
    callQueued(mValues.get<PumpVoltageTargetSpeed>(), &PumpValueBase::subscribe);
    callQueued(mValues.get<PumpFrequencyTargetSpeed>(), &PumpValueBase::subscribe);
}

void PumpSpeedRangeController::unsubscribe() {
    callQueued(mValues.get<PumpCurrentTargetSpeed>(), &PumpValueBase::unsubscribe);
    callQueued(mValues.get<PumpVoltageTargetSpeed>(), &PumpValueBase::unsubscribe);
    callQueued(mValues.get<PumpFrequencyTargetSpeed>(), &PumpValueBase::unsubscribe);
}

void PumpSpeedRangeController::getAllSpeedRanges() {
    callQueued(mValues.get<PumpEnableLineSpeed>(), &PumpEnableLineSpeed::getEnableLineSpeed);
    callQueued(mValues.get<PumpCurrentSpeedRange>(), &PumpSpeedRangeBase::getSpeedRange);
    callQueued(mValues.get<PumpFrequencySpeedRange>(), &PumpSpeedRangeBase::getSpeedRange);
    callQueued(mValues.get<PumpVoltageSpeedRange>(), &PumpSpeedRangeBase::getSpeedRange);
}

void PumpSpeedRangeController::getAllSpeedRangeLimits() {
    callQueued(mValues.get<PumpEnableLineSpeedLimits>(),
               &PumpEnableLineSpeedLimits::getEnableLineSpeedLimits);
    callQueued(mValues.get<PumpCurrentSpeedRangeLimits>(),
               &PumpSpeedRangeLimitsBase::getSpeedRangeLimits);
    callQueued(mValues.get<PumpFrequencySpeedRangeLimits>(),
               &PumpSpeedRangeLimitsBase::getSpeedRangeLimits);
    callQueued(mValues.get<PumpVoltageSpeedRangeLimits>(),
               &PumpSpeedRangeLimitsBase::getSpeedRangeLimits);
}

void PumpSpeedRangeController::setAllSpeedRangeDefaults() {
    callQueued(mValues.get<PumpEnableLineSpeed>(), &PumpEnableLineSpeed::setDefaultEnableLineSpeed);
    callQueued(mValues.get<PumpCurrentSpeedRange>(), &PumpSpeedRangeBase::setSpeedRangeDefault);
    callQueued(mValues.get<PumpFrequencySpeedRange>(), &PumpSpeedRangeBase::setSpeedRangeDefault);
    callQueued(mValues.get<PumpVoltageSpeedRange>(), &PumpSpeedRangeBase::setSpeedRangeDefault);
}

bool PumpSpeedRangeController::setSpeedRange(Input input, double minSpeedDrpm, double maxSpeedDrpm,
                                             double minInput, double maxInput, double hysteresis) {
    const auto field = [](double figure, const char* what) {
        return requestedFigure<uint32_t>(figure, what, "setSpeedRange");
    };
    const auto minSpeed = field(minSpeedDrpm, "Minimum speed");
    const auto maxSpeed = field(maxSpeedDrpm, "Maximum speed");
    const auto lowInput = field(minInput, "Minimum input");
    const auto highInput = field(maxInput, "Maximum input");
    const auto band = field(hysteresis, "Hysteresis");
    if (!minSpeed || !maxSpeed || !lowInput || !highInput || !band) {
        return false;
    }
    QSpeedRangeProfile profile;
    profile.MinimumSpeedDrpm = *minSpeed;
    profile.MaximumSpeedDrpm = *maxSpeed;
    profile.MinimumInput = *lowInput;
    profile.MaximumInput = *highInput;
    profile.Hysteresis = *band;
    PumpSpeedRangeBase* const values[] = {&mValues.get<PumpCurrentSpeedRange>(),
                                          &mValues.get<PumpVoltageSpeedRange>(),
                                          &mValues.get<PumpFrequencySpeedRange>()};
    callQueued(*values[input], &PumpSpeedRangeBase::setSpeedRange, profile);
    return true;
}

// The hysteresis values carry it as a measured quantity: a float holds every whole number up to
// 2^24, far above any input hysteresis.
bool PumpSpeedRangeController::setHysteresis(Input input, double hysteresis) {
    const auto band = requestedFigure<uint32_t>(hysteresis, "Hysteresis", "setHysteresis");
    if (!band) {
        return false;
    }
    PumpHysteresisBase* const values[] = {&mValues.get<PumpCurrentHysteresis>(),
                                          &mValues.get<PumpVoltageHysteresis>(),
                                          &mValues.get<PumpFrequencyHysteresis>()};
    callQueued(*values[input], &PumpHysteresisBase::set, static_cast<float>(*band));
    return true;
}

bool PumpSpeedRangeController::setCurrentSpeedRangeDrpm(double minSpeedDrpm, double maxSpeedDrpm,
                                                        double minInput, double maxInput,
                                                        double hysteresis) {
    return setSpeedRange(Current, minSpeedDrpm, maxSpeedDrpm, minInput, maxInput, hysteresis);
}

bool PumpSpeedRangeController::setFrequencySpeedRangeDrpm(double minSpeedDrpm, double maxSpeedDrpm,
                                                          double minInput, double maxInput,
                                                          double hysteresis) {
    return setSpeedRange(Frequency, minSpeedDrpm, maxSpeedDrpm, minInput, maxInput, hysteresis);
}

bool PumpSpeedRangeController::setVoltageSpeedRangeDrpm(double minSpeedDrpm, double maxSpeedDrpm,
                                                        double minInput, double maxInput,
                                                        double hysteresis) {
    return setSpeedRange(Voltage, minSpeedDrpm, maxSpeedDrpm, minInput, maxInput, hysteresis);
}

bool PumpSpeedRangeController::setCurrentHysteresis(double hysteresis) {
    return setHysteresis(Current, hysteresis);
}

bool PumpSpeedRangeController::setFrequencyHysteresis(double hysteresis) {
    return setHysteresis(Frequency, hysteresis);
}

bool PumpSpeedRangeController::setVoltageHysteresis(double hysteresis) {
    return setHysteresis(Voltage, hysteresis);
}

bool PumpSpeedRangeController::setEnableLineSpeedDrpm(double speedDrpm) {
    const auto speed =
        requestedFigure<uint32_t>(speedDrpm, "EnableLineSpeed", "setEnableLineSpeedDrpm");
    if (speed) {
        callQueued(mValues.get<PumpEnableLineSpeed>(), &PumpEnableLineSpeed::setEnableLineSpeed,
                   *speed);
    }
    return speed.has_value();
}

void PumpSpeedRangeController::getEnableLineSpeed() {
    callQueued(mValues.get<PumpEnableLineSpeed>(), &PumpEnableLineSpeed::getEnableLineSpeed);
}

void PumpSpeedRangeController::getEnableLineLimits() {
    callQueued(mValues.get<PumpEnableLineSpeedLimits>(),
               &PumpEnableLineSpeedLimits::getEnableLineSpeedLimits);
}

void PumpSpeedRangeController::pumpVoltageTargetSpeed_targetSpeedChanged(uint32_t speedDrpm) {
    mRanges[Voltage].targetSpeed = reportedFigure<int32_t>(speedDrpm, "VoltageTargetSpeed");
    emit voltageTargetSpeedChanged();
}

void PumpSpeedRangeController::speedResolutionVoltage_speedResolutionChanged(
    uint32_t speedResolutionDrpm) {
    mRanges[Voltage].resolution = speedResolutionDrpm;
    emit voltageSpeedResolutionChanged();
}

void PumpSpeedRangeController::pumpCurrentTargetSpeed_targetSpeedChanged(uint32_t speedDrpm) {
    mRanges[Current].targetSpeed = reportedFigure<int32_t>(speedDrpm, "CurrentTargetSpeed");
    emit currentTargetSpeedChanged();
}

void PumpSpeedRangeController::speedResolutionCurrent_speedResolutionChanged(
    uint32_t speedResolutionDrpm) {
    mRanges[Current].resolution = speedResolutionDrpm;
    emit currentSpeedResolutionChanged();
}

void PumpSpeedRangeController::pumpFrequencyTargetSpeed_targetSpeedChanged(uint32_t speedDrpm) {
    mRanges[Frequency].targetSpeed = reportedFigure<int32_t>(speedDrpm, "FrequencyTargetSpeed");
    emit frequencyTargetSpeedChanged();
}

void PumpSpeedRangeController::speedResolutionFrequency_speedResolutionChanged(
    uint speedResolutionDrpm) {
    mRanges[Frequency].resolution = speedResolutionDrpm;
    emit frequencySpeedResolutionChanged();
}

void PumpSpeedRangeController::pumpEnableLineSpeed_getEnableLineSpeedResponse(uint32_t speedDrpm) {
    mEnableLineSpeedDrpm = reportedFigure<int32_t>(speedDrpm, "EnableLineSpeed");
    emit enableLineSpeedChanged();
}

void PumpSpeedRangeController::pumpEnableLineLimits_getEnableLineLimitResponse(
    uint32_t lowerLimitDrpm, uint32_t upperLimitDrpm) {
    const int32_t lower = reportedFigure<int32_t>(lowerLimitDrpm, "EnableLineSpeedLimits");
    const int32_t upper = reportedFigure<int32_t>(upperLimitDrpm, "EnableLineSpeedLimits");
    if (lower != mEnableLineLowerLimitDrpm) {
        mEnableLineLowerLimitDrpm = lower;
        emit enableLineLowerLimitChanged();
    }
    if (upper != mEnableLineUpperLimitDrpm) {
        mEnableLineUpperLimitDrpm = upper;
        emit enableLineUpperLimitChanged();
    }
}

void PumpSpeedRangeController::pumpCurrentSpeedRange_getSpeedRangeResponse(
    const QSpeedRangeProfile& profile) {
    mRanges[Current].profile = profile;
    emit currentProfileChanged();
}

void PumpSpeedRangeController::pumpCurrentSpeedRangeLimits_getSpeedRangeLimitsResponse(
    const QSpeedRangeProfile& limits) {
    mRanges[Current].limits = limits;
    emit currentLimitsChanged();
}

void PumpSpeedRangeController::pumpFrequencySpeedRange_getSpeedRangeResponse(
    const QSpeedRangeProfile& profile) {
    mRanges[Frequency].profile = profile;
    emit frequencyProfileChanged();
}

void PumpSpeedRangeController::pumpFrequencySpeedRangeLimits_getSpeedRangeLimitsResponse(
    const QSpeedRangeProfile& limits) {
    mRanges[Frequency].limits = limits;
    emit frequencyLimitsChanged();
}

void PumpSpeedRangeController::pumpVoltageSpeedRange_getSpeedRangeResponse(
    const QSpeedRangeProfile& profile) {
    mRanges[Voltage].profile = profile;
    emit voltageProfileChanged();
}

void PumpSpeedRangeController::pumpVoltageSpeedRangeLimits_getSpeedRangeLimitsResponse(
    const QSpeedRangeProfile& limits) {
    mRanges[Voltage].limits = limits;
    emit voltageLimitsChanged();
}

} // namespace communication
