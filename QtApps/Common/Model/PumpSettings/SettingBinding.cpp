#include "SettingBinding.h"

namespace pumpSettings {

SettingBinding::SettingBinding(communication::PumpValueBase& value, QObject* parent)
    : QObject(parent) {
    connect(&value, &communication::PumpValueBase::setSuccess, this,
            &SettingBinding::onSetAcknowledged, Qt::QueuedConnection);
}

void SettingBinding::request() {
    mPhase = Phase::Reading;
    sendGet();
}

void SettingBinding::apply(const FieldValues& file) {
    mPhase = Phase::AwaitingAcknowledgement;
    sendSet(file);
}

void SettingBinding::onSetAcknowledged() {
    if (mPhase == Phase::AwaitingAcknowledgement) {
        mPhase = Phase::ReadingBack;
    }
}

void SettingBinding::take(FieldValues fields) {
    if (mPhase != Phase::Reading && mPhase != Phase::ReadingBack) {
        return;
    }
    mAnswer = std::move(fields);
    mPhase = Phase::Answered;
    emit answered();
}

} // namespace pumpSettings
