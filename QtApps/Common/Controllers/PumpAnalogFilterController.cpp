#include "PumpAnalogFilterController.h"

#include "AnalogFilterVariance.h"
#include "QueuedCall.h"
#include "ReportedFigure.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"

namespace communication {

using objects::AnalogFilterData;
using objects::QSpeedRangeProfile;

PumpAnalogFilterController::PumpAnalogFilterController(
    PumpValues& values, const halyard::device::SystemInterface& clock, QObject* parent)
    : QObject(parent)
    , mValues(values) {
    using Self = PumpAnalogFilterController;
    const auto feed = [this](auto& source, auto signal, auto slot) {
        connect(&source, signal, this, slot, Qt::QueuedConnection);
    };
    feed(values.get<PumpAnalogFilterNumSamplesCurrent>(),
         &PumpAnalogFilterNumSamplesBase::numSamplesChanged, &Self::pumpCurrent_numSamplesChanged);
    feed(values.get<PumpAnalogFilterNumSamplesCurrentLimits>(),
         &PumpAnalogFilterNumSamplesLimitsBase::numSamplesLimitsChanged,
         &Self::pumpCurrent_numSamplesLimitsChanged);
    feed(values.get<PumpAnalogFilterDataCurrent>(), &PumpAnalogFilterDataBase::filterDataChanged,
         &Self::pumpCurrent_filterDataChanged);
    feed(values.get<PumpCurrentSpeedRange>(), &PumpSpeedRangeBase::getSpeedRangeResponse,
         &Self::pumpCurrentSpeedRange_getSpeedRangeResponse);
    feed(values.get<PumpAnalogFilterNumSamplesVoltage>(),
         &PumpAnalogFilterNumSamplesBase::numSamplesChanged, &Self::pumpVoltage_numSamplesChanged);
    feed(values.get<PumpAnalogFilterNumSamplesVoltageLimits>(),
         &PumpAnalogFilterNumSamplesLimitsBase::numSamplesLimitsChanged,
         &Self::pumpVoltage_numSamplesLimitsChanged);
    feed(values.get<PumpAnalogFilterDataVoltage>(), &PumpAnalogFilterDataBase::filterDataChanged,
         &Self::pumpVoltage_filterDataChanged);
    feed(values.get<PumpVoltageSpeedRange>(), &PumpSpeedRangeBase::getSpeedRangeResponse,
         &Self::pumpVoltageSpeedRange_getSpeedRangeResponse);
    feed(values.get<PumpDetailsGetAll>(), &PumpDetailsGetAll::getAllResponse,
         &Self::onPumpIdentified);

    // The variance timers run from here on, also while nothing is subscribed: the figures fall
    // to 0 a second after the last sample.
    for (Filter& each : mFilters) {
        each.variance = new AnalogFilterVariance(kSamplePeriodMs, each.profile, clock, this);
        each.variance->start();
    }
    connect(mFilters[Current].variance, &AnalogFilterVariance::varianceUpdate, this,
            &Self::currentVarianceChanged);
    connect(mFilters[Voltage].variance, &AnalogFilterVariance::varianceUpdate, this,
            &Self::voltageVarianceChanged);
}

PumpAnalogFilterController::~PumpAnalogFilterController() = default;

float PumpAnalogFilterController::currentInputVarianceDrpm() const {
    return filter(Current).variance->inputVarianceDrpm();
}

float PumpAnalogFilterController::currentOutputVarianceDrpm() const {
    return filter(Current).variance->outputVarianceDrpm();
}

float PumpAnalogFilterController::voltageInputVarianceDrpm() const {
    return filter(Voltage).variance->inputVarianceDrpm();
}

float PumpAnalogFilterController::voltageOutputVarianceDrpm() const {
    return filter(Voltage).variance->outputVarianceDrpm();
}

// A pump is only asked once it is there: at start-up no port is open, and a request would only
// time out.
void PumpAnalogFilterController::onPumpIdentified(const objects::PumpDetails& /*details*/) {
    callQueued(mValues.get<PumpCurrentSpeedRange>(), &PumpSpeedRangeBase::getSpeedRange);
    callQueued(mValues.get<PumpVoltageSpeedRange>(), &PumpSpeedRangeBase::getSpeedRange);
}

void PumpAnalogFilterController::getCurrentNumSamples() {
    callQueued(mValues.get<PumpAnalogFilterNumSamplesCurrent>(),
               &PumpAnalogFilterNumSamplesBase::getNumSamples);
}

void PumpAnalogFilterController::getCurrentNumSamplesMax() {
    callQueued(mValues.get<PumpAnalogFilterNumSamplesCurrentLimits>(),
               &PumpAnalogFilterNumSamplesLimitsBase::getNumSamplesLimits);
}

bool PumpAnalogFilterController::setCurrentNumSamples(double numSamples) {
    const auto count =
        requestedFigure<uint32_t>(numSamples, "NumSamplesCurrent", "setCurrentNumSamples");
    if (count) {
        callQueued(mValues.get<PumpAnalogFilterNumSamplesCurrent>(),
                   &PumpAnalogFilterNumSamplesBase::setNumSamples, size_t{*count});
    }
    return count.has_value();
}

void PumpAnalogFilterController::subscribeCurrentFilterData() {
    callQueued(mValues.get<PumpAnalogFilterDataCurrent>(), &PumpValueBase::subscribe);
}

void PumpAnalogFilterController::unsubscribeCurrentFilterData() {
    callQueued(mValues.get<PumpAnalogFilterDataCurrent>(), &PumpValueBase::unsubscribe);
}

void PumpAnalogFilterController::getVoltageNumSamples() {
    callQueued(mValues.get<PumpAnalogFilterNumSamplesVoltage>(),
               &PumpAnalogFilterNumSamplesBase::getNumSamples);
}

void PumpAnalogFilterController::getVoltageNumSamplesMax() {
    callQueued(mValues.get<PumpAnalogFilterNumSamplesVoltageLimits>(),
               &PumpAnalogFilterNumSamplesLimitsBase::getNumSamplesLimits);
}

bool PumpAnalogFilterController::setVoltageNumSamples(double numSamples) {
    const auto count =
        requestedFigure<uint32_t>(numSamples, "NumSamplesVoltage", "setVoltageNumSamples");
    if (count) {
        callQueued(mValues.get<PumpAnalogFilterNumSamplesVoltage>(),
                   &PumpAnalogFilterNumSamplesBase::setNumSamples, size_t{*count});
    }
    return count.has_value();
}

void PumpAnalogFilterController::subscribeVoltageFilterData() {
    callQueued(mValues.get<PumpAnalogFilterDataVoltage>(), &PumpValueBase::subscribe);
}

void PumpAnalogFilterController::unsubscribeVoltageFilterData() {
    callQueued(mValues.get<PumpAnalogFilterDataVoltage>(), &PumpValueBase::unsubscribe);
}

void PumpAnalogFilterController::pumpCurrent_numSamplesChanged(size_t numSamples) {
    mFilters[Current].numSamples = reportedFigure<int>(numSamples, "NumSamplesCurrent");
    emit currentNumSamplesChanged();
}

void PumpAnalogFilterController::pumpCurrent_numSamplesLimitsChanged(size_t minimum,
                                                                     size_t maximum) {
    mFilters[Current].numSamplesMin = reportedFigure<int>(minimum, "NumSamplesCurrentLimits");
    mFilters[Current].numSamplesMax = reportedFigure<int>(maximum, "NumSamplesCurrentLimits");
    emit currentNumSamplesMaxChanged();
}

void PumpAnalogFilterController::pumpCurrent_filterDataChanged(const AnalogFilterData& data) {
    mFilters[Current].data = data;
    mFilters[Current].variance->addSample(data);
    emit currentFilterDataChanged();
}

void PumpAnalogFilterController::pumpCurrentSpeedRange_getSpeedRangeResponse(
    const QSpeedRangeProfile& profile) {
    mFilters[Current].profile = profile;
}

void PumpAnalogFilterController::pumpVoltage_numSamplesChanged(size_t numSamples) {
    mFilters[Voltage].numSamples = reportedFigure<int>(numSamples, "NumSamplesVoltage");
    emit voltageNumSamplesChanged();
}

void PumpAnalogFilterController::pumpVoltage_numSamplesLimitsChanged(size_t minimum,
                                                                     size_t maximum) {
    mFilters[Voltage].numSamplesMin = reportedFigure<int>(minimum, "NumSamplesVoltageLimits");
    mFilters[Voltage].numSamplesMax = reportedFigure<int>(maximum, "NumSamplesVoltageLimits");
    emit voltageNumSamplesMaxChanged();
}

void PumpAnalogFilterController::pumpVoltage_filterDataChanged(const AnalogFilterData& data) {
    mFilters[Voltage].data = data;
    mFilters[Voltage].variance->addSample(data);
    emit voltageFilterDataChanged();
}

void PumpAnalogFilterController::pumpVoltageSpeedRange_getSpeedRangeResponse(
    const QSpeedRangeProfile& profile) {
    mFilters[Voltage].profile = profile;
}

} // namespace communication
