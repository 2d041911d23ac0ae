#pragma once

#include "ProxyRequestSignals.h"
#include "PumpValueBase.h"
#include "RefusedText.h"
#include "WireConversions.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"

#include <type_traits>

namespace communication {

/// Default subscription of a streaming value.
struct Subscription {
    uint16_t periodMs;
    bool onChange;
};

/// A pump value bound to one proxy of the object container. It lives on the container's thread,
/// where the proxies run, and sends its requests through the proxy.
template <typename Proxy>
class ProxyValue : public PumpValueBase {
protected:
    /// Request-only value.
    ProxyValue(ProtocolObjectContainer& container, uint8_t attribute, const char* name)
        : PumpValueBase(attribute, QString::fromLatin1(name))
        , mProxy(container.get<Proxy>()) {
        moveToThread(container.thread());
    }

    /// Streaming value: subscribes through the proxy.
    ProxyValue(ProtocolObjectContainer& container, uint8_t attribute, const char* name,
               Subscription subscription)
        : PumpValueBase(attribute, QString::fromLatin1(name), &container.get<Proxy>(),
                        subscription.periodMs, subscription.onChange)
        , mProxy(container.get<Proxy>()) {
        moveToThread(container.thread());
        connectProxy(ProxyRequestSignals<Proxy>::subscribeAck, &PumpValueBase::onAckSubscribe);
    }

    Proxy& proxy() const { return mProxy; }

    /// Calls the proxy's request with the arguments, which must have its parameter types; a request
    /// that could not be queued is logged with `refusedText` and otherwise ignored.
    template <typename... Params, typename... Args>
    bool send(RefusedText refusedText, bool (Proxy::*request)(Params...), const Args&... args) {
        if ((mProxy.*request)(wire::exact<std::decay_t<Params>>(args)...)) {
            return true;
        }
        refusedText.log();
        return false;
    }

    /// Hands a proxy signal to a slot of the value. The arguments pass as they are unless
    /// `convert`, a named conversion of WireConversions.h, is given: it is applied to each.
    template <typename... SignalArgs, typename Value, typename... SlotArgs,
              typename Convert = wire::Unchanged>
    void forward(void (Proxy::*signal)(SignalArgs...), void (Value::*slot)(SlotArgs...),
                 Convert convert = {}) {
        relay(signal, slot, convert, [](Value&) {});
    }

    /// Connects a proxy signal to a slot of this value as it is; a null signal (the proxy has
    /// none of that kind) connects nothing.
    template <typename Signal, typename Receiver, typename... Args>
    void connectProxy(Signal signal, void (Receiver::*slot)(Args...)) {
        if constexpr (!std::is_null_pointer_v<Signal>) {
            connect(&mProxy, signal, static_cast<Receiver*>(this), slot);
        }
    }

    void logRefused(const RefusedText& text) const { text.log(); }

    /// Connects `signal` to `slot` through `convert`; `before` runs on the value first.
    template <typename... SignalArgs, typename Value, typename... SlotArgs, typename Convert,
              typename Before>
    void relay(void (Proxy::*signal)(SignalArgs...), void (Value::*slot)(SlotArgs...),
               Convert convert, Before before) {
        auto* value = static_cast<Value*>(this);
        connect(&mProxy, signal, value, [value, slot, convert, before](SignalArgs... args) {
            before(*value);
            (value->*slot)(wire::exact<std::decay_t<SlotArgs>>(convert(args))...);
        });
    }

private:
    Proxy& mProxy;
};

} // namespace communication
