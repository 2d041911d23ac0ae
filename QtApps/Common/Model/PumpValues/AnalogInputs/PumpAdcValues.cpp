#include "PumpAdcValues.h"

#include "QtApps/Common/Logger/Log.h"

namespace communication {

using objects::AnalogInputObject;

PumpAdcValues::PumpAdcValues(ProtocolObjectContainer& container)
    : mProxy(container.get<AnalogInputObject>()) {
    moveToThread(container.thread());
    connect(&mProxy, &AnalogInputObject::updateAdcVoltage, this,
            &PumpAdcValues::onUpdateAdcVoltage);
    connect(&mProxy, &AnalogInputObject::updateAdcCurrent, this,
            &PumpAdcValues::onUpdateAdcCurrent);
    connect(&mProxy, &AnalogInputObject::updateAdcBusVoltage, this,
            &PumpAdcValues::onUpdateAdcBusVoltage);
    connect(&mProxy, &AnalogInputObject::ackResult, this, &PumpAdcValues::onAckSubscribe);
    connect(&mProxy, &AnalogInputObject::subscribeTimeout, this,
            &PumpAdcValues::onSubscribeTimeout);
    connect(&mProxy, &AnalogInputObject::unsubscribeTimeout, this,
            &PumpAdcValues::onUnsubscribeTimeout);
}

bool PumpAdcValues::isAdcAttribute(uint8_t attribute) {
    return attribute >= AnalogInputObject::AdcCurrent &&
           attribute <= AnalogInputObject::AdcBusVoltage;
}

void PumpAdcValues::reportError(const logger::Site& site, const QString& text) {
    logger::write(logger::Level::Warn, site, text);
    emit error(text);
}

void PumpAdcValues::onSubscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) {
    if (!isAdcAttribute(attribute)) {
        reportError("onSubscribe", QStringLiteral("Invalid subscribe attribute"));
        return;
    }
    mSubscriptions[attribute] = {perdiodMs, onChange};
    mSubscribeRetries.answered(attribute);
    if (!mProxy.Subscribe(attribute, perdiodMs, onChange)) {
        reportError("onSubscribe", QStringLiteral("Error calling AnalogInputObject.Subscribe"));
    }
}

void PumpAdcValues::onUnsubscribe(uint8_t attribute) {
    if (!isAdcAttribute(attribute)) {
        reportError("onUnsubscribe", QStringLiteral("Invalid unsubscribe attribute"));
        return;
    }
    mUnsubscribeRetries.answered(attribute);
    if (!mProxy.Unsubscribe(attribute)) {
        reportError("onUnsubscribe", QStringLiteral("Error calling AnalogInputObject.Unsubscribe"));
    }
}

void PumpAdcValues::onAckSubscribe(bool success, uint8_t attribute) {
    if (!isAdcAttribute(attribute)) {
        return;
    }
    mSubscribeRetries.answered(attribute);
    mUnsubscribeRetries.answered(attribute);
    if (!success) {
        reportError("onAckSubscribe", QStringLiteral("Pump returned (Un)subscribe nak"));
    }
}

void PumpAdcValues::onSubscribeTimeout(uint8_t attribute) {
    if (!isAdcAttribute(attribute)) {
        return;
    }
    if (!mSubscribeRetries.mayRetry(attribute)) {
        BWL_LOG_WARN("onSubscribeTimeout",
                     QStringLiteral("AnalogInputObject.Subscribe attr:%1, no response, aborting")
                         .arg(attribute));
        return;
    }
    const Subscription& subscription = mSubscriptions[attribute];
    if (!mProxy.Subscribe(attribute, subscription.periodMs, subscription.onChange)) {
        reportError("onSubscribeTimeout",
                    QStringLiteral("Error retrying AnalogInputObject.Subscribe"));
    }
}

void PumpAdcValues::onUnsubscribeTimeout(uint8_t attribute) {
    if (!isAdcAttribute(attribute)) {
        return;
    }
    if (!mUnsubscribeRetries.mayRetry(attribute)) {
        BWL_LOG_WARN("onUnsubscribeTimeout",
                     QStringLiteral("AnalogInputObject.Unsubscribe attr:%1, no response, aborting")
                         .arg(attribute));
        return;
    }
    if (!mProxy.Unsubscribe(attribute)) {
        reportError("onUnsubscribeTimeout",
                    QStringLiteral("Error calling AnalogInputObject.Unsubscribe"));
    }
}

} // namespace communication
