#include "PumpValueBase.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectSubscribeInterface.h"
#include "QtApps/Common/Core/Communication/SendLimit.h"
#include "QtApps/Common/Logger/Log.h"

namespace communication {

PumpValueBase::PumpValueBase(uint8_t attribute, const QString& name,
                             objects::ProtocolObjectSubscribeInterface* subscribeInterface,
                             uint16_t defaultPeriodMs, bool defaultOnChange)
    : mSubscribeInterface(subscribeInterface)
    , mDefaultPeriodMs(defaultPeriodMs)
    , mDefaultOnChange(defaultOnChange)
    , mName(name)
    , mAttribute(attribute) {
    if (mSubscribeInterface != nullptr) {
        connect(mSubscribeInterface, &objects::ProtocolObjectSubscribeInterface::subscribeTimeout,
                this, &PumpValueBase::onSubscribeTimeout);
        connect(mSubscribeInterface, &objects::ProtocolObjectSubscribeInterface::ackSubscribeResult,
                this, &PumpValueBase::onAckSubscribe);
    }
}

PumpValueBase::PumpValueBase(uint8_t attribute, const QString& name)
    : mName(name)
    , mAttribute(attribute) {}

QString PumpValueBase::boolText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

bool PumpValueBase::countTimeout(uint64_t& count) {
    return kRequestSendLimit.countTimeout(count);
}

void PumpValueBase::subscribe() {
    sendSubscribe(mDefaultPeriodMs, mDefaultOnChange);
}

void PumpValueBase::subscribeWithParams(uint16_t perdiodMs, bool onChange) {
    sendSubscribe(perdiodMs, onChange);
}

void PumpValueBase::sendSubscribe(uint16_t periodMs, bool onChange) {
    if (mSubscribeInterface == nullptr) {
        return;
    }
    if (!mSubscribeInterface->Subscribe(mAttribute, periodMs, onChange)) {
        BWL_LOG_WARN("subscribeWithParams",
                     QStringLiteral("%1 subscribe, can't send Subscribe").arg(mName));
    }
}

void PumpValueBase::unsubscribe() {
    if (mSubscribeInterface == nullptr) {
        return;
    }
    if (!mSubscribeInterface->Unsubscribe(mAttribute)) {
        BWL_LOG_WARN("unsubscribe",
                     QStringLiteral("%1 unsubscribe, can't send Unsubscribe").arg(mName));
    }
}

void PumpValueBase::onSubscribeTimeout(uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    // Unlike the other kinds, an aborted subscribe keeps its count: every later time-out is
    // an abort at once until the pump answers a subscribe for this attribute.
    if (countTimeout(mSubscribeTimeouts)) {
        BWL_LOG_INFO("onSubscribeTimeout",
                     QStringLiteral("%1 onSubscribeTimeout, no response, retrying").arg(mName));
        subscribe();
    } else {
        BWL_LOG_WARN(
            "onSubscribeTimeout",
            QStringLiteral("%1 onSubscribeTimeout, no response, aborting subscribe").arg(mName));
    }
}

void PumpValueBase::onGetValueTimeout(uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    if (countTimeout(mGetTimeouts)) {
        BWL_LOG_INFO("onGetValueTimeout",
                     QStringLiteral("%1 onGetValueTimeout, no response, retrying").arg(mName));
        emit retryGetValue();
    } else {
        BWL_LOG_WARN("onGetValueTimeout",
                     QStringLiteral("%1 onGetValueTimeout, no response, aborting Get").arg(mName));
        emit getValueAborted();
        mGetTimeouts = 0;
    }
}

void PumpValueBase::onSetValueTimeout(uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    if (countTimeout(mSetTimeouts)) {
        BWL_LOG_INFO("onSetValueTimeout",
                     QStringLiteral("%1 onSetValueTimeout, no response, retrying").arg(mName));
        emit retrySetValue();
    } else {
        BWL_LOG_WARN("onSetValueTimeout",
                     QStringLiteral("%1 onSetValueTimeout, no response, aborting Set").arg(mName));
        mSetTimeouts = 0;
        emit setValueAborted();
    }
}

void PumpValueBase::onSetDefaultValueTimeout(uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    if (countTimeout(mSetDefaultTimeouts)) {
        BWL_LOG_INFO(
            "onSetDefaultValueTimeout",
            QStringLiteral("%1 onSetDefaultValueTimeout, no response, retrying").arg(mName));
        emit retrySetDefaultValue();
    } else {
        BWL_LOG_WARN(
            "onSetDefaultValueTimeout",
            QStringLiteral("%1 onSetDefaultValueTimeout, no response, aborting").arg(mName));
        emit setDefaultValueSuccess(false);
        mSetDefaultTimeouts = 0;
    }
}

void PumpValueBase::onAckSubscribe(bool success, uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    mSubscribeTimeouts = 0;
    if (!success) {
        BWL_LOG_WARN("onAckSubscribe", QStringLiteral("%1 onAckResult, failed").arg(mName));
    }
}

void PumpValueBase::onAckGetValue(uint8_t attribute) {
    if (attribute == mAttribute) {
        mGetTimeouts = 0;
    }
}

void PumpValueBase::onAckSetValue(uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    // Receivers of setSuccess may start a new Set; the count belongs to the request just
    // acknowledged, so it is cleared after them.
    emit setSuccess();
    mSetTimeouts = 0;
}

void PumpValueBase::onAckSetDefaultValue(uint8_t attribute) {
    if (attribute != mAttribute) {
        return;
    }
    mSetDefaultTimeouts = 0;
    emit setDefaultValueSuccess(true);
}

} // namespace communication
