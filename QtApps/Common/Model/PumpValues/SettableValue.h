#pragma once

#include "ReadableValue.h"

namespace communication {

/// Texts logged when a Set cannot be queued, first and repeated.
struct SetRefusedTexts {
    RefusedText set;
    RefusedText retry;
};

/// A value the application also sets. The requested value is kept so that a Set time-out
/// re-sends it (up to the base's limit), and every acknowledged Set is followed by one Get, so
/// that the screens show what the pump holds rather than what was asked.
template <typename Proxy, typename T>
class SettableValue : public ReadableValue<Proxy> {
protected:
    using ReadableValue<Proxy>::ReadableValue;
    using Signals = ProxyRequestSignals<Proxy>;

    /// `request` sends a Set of the given value.
    template <typename Request>
    void setSetRequest(SetRefusedTexts texts, Request request) {
        mSet = std::function<bool(const T&)>(request);
        mSetTexts = texts;
        this->connectProxy(Signals::setTimeout, &PumpValueBase::onSetValueTimeout);
        this->connectProxy(Signals::setAck, &PumpValueBase::onAckSetValue);
        QObject::connect(this, &PumpValueBase::retrySetValue, this, [this] { retrySet(); });
    }
    /// The same for a plain one-argument request of the proxy; `convert`, a named conversion of
    /// WireConversions.h, turns the value into the request's wire type where they differ.
    template <typename Param, typename Convert = wire::Unchanged>
    void setSetRequest(SetRefusedTexts texts, bool (Proxy::*request)(Param), Convert convert = {}) {
        setSetRequest(texts, [this, request, convert](const T& value) {
            return (this->proxy().*request)(wire::exact<std::decay_t<Param>>(convert(value)));
        });
    }

    /// Connects the proxy's set acknowledgement to the value's own set-ack slot, which calls
    /// readBack(); after the base has seen the acknowledgement.
    template <typename Value>
    void readBackOn(void (Value::*setAckSlot)(uint8_t)) {
        this->connectProxy(Signals::setAck, setAckSlot);
    }

    /// `request` sends a Set-default. Its time-outs are retried like a Set's, and an
    /// acknowledged one is read back too.
    template <typename Request>
    void setSetDefaultRequest(RefusedText refusedText, Request request) {
        mSetDefault = std::function<bool()>(request);
        mSetDefaultRefusedText = refusedText;
        this->connectProxy(Signals::setDefaultTimeout, &PumpValueBase::onSetDefaultValueTimeout);
        this->connectProxy(Signals::setDefaultAck, &PumpValueBase::onAckSetDefaultValue);
        QObject::connect(this, &PumpValueBase::retrySetDefaultValue, this,
                         [this] { setDefault(); });
        QObject::connect(this, &PumpValueBase::setDefaultValueSuccess, this, [this](bool success) {
            if (success) {
                this->get();
            }
        });
    }

    void setDefault() {
        if (!mSetDefault()) {
            this->logRefused(mSetDefaultRefusedText);
        }
    }

    void set(const T& value) {
        mRequested = value;
        sendRequested(mSetTexts.set);
    }
    void retrySet() { sendRequested(mSetTexts.retry); }
    void readBack(uint8_t attribute) {
        if (attribute == this->attribute()) {
            this->get();
        }
    }
    const T& requested() const { return mRequested; }

private:
    void sendRequested(RefusedText refusedText) {
        if (!mSet(mRequested)) {
            this->logRefused(refusedText);
        }
    }

    std::function<bool(const T&)> mSet = [](const T&) { return false; };
    SetRefusedTexts mSetTexts{"", ""};
    std::function<bool()> mSetDefault = [] { return false; };
    RefusedText mSetDefaultRefusedText = "";
    T mRequested{};
};

} // namespace communication
