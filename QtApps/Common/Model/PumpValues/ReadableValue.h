#pragma once

#include "ProxyRequestSignals.h"
#include "ProxyValue.h"

#include <functional>

namespace communication {

/// A value the application reads with a Get: a time-out retries the Get up to the base's
/// limit, and an answer (the value itself or the pump's refusal) acknowledges it.
template <typename Proxy>
class ReadableValue : public ProxyValue<Proxy> {
protected:
    using ProxyValue<Proxy>::ProxyValue;
    using Signals = ProxyRequestSignals<Proxy>;

    /// `request` sends the Get; `refusedText` is logged when it cannot be queued.
    template <typename Request>
    void setGetRequest(RefusedText refusedText, Request request) {
        mGet = std::function<bool()>(request);
        mGetRefusedText = refusedText;
        this->connectProxy(Signals::getTimeout, &PumpValueBase::onGetValueTimeout);
        this->connectProxy(Signals::getAck, &PumpValueBase::onAckGetValue);
        QObject::connect(this, &PumpValueBase::retryGetValue, this, [this] { get(); });
    }
    /// The same for a plain request of the proxy without arguments.
    void setGetRequest(RefusedText refusedText, bool (Proxy::*request)()) {
        setGetRequest(refusedText, [this, request] { return (this->proxy().*request)(); });
    }

    void get() {
        if (!mGet()) {
            this->logRefused(mGetRefusedText);
        }
    }

    /// Like forward(), for the answer to a Get: the answer also acknowledges the Get, so the
    /// time-out count starts again from the first.
    template <typename... SignalArgs, typename Value, typename... SlotArgs,
              typename Convert = wire::Unchanged>
    void forwardResponse(void (Proxy::*signal)(SignalArgs...), void (Value::*slot)(SlotArgs...),
                         Convert convert = {}) {
        this->relay(signal, slot, convert,
                    [](Value& value) { value.onAckGetValue(value.attribute()); });
    }

private:
    std::function<bool()> mGet = [] { return false; };
    RefusedText mGetRefusedText = "";
};

} // namespace communication
