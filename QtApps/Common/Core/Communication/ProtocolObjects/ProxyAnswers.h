#pragma once

#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"

#include <cstdint>
#include <type_traits>

namespace communication::objects {

/// The proxy's own signals for the standard answers to its requests, each taking the attribute.
/// A null entry raises nothing for that case.
template <typename Proxy>
struct AnswerSignals {
    using Signal = void (Proxy::*)(uint8_t attribute);
    Signal getTimeout = nullptr;
    Signal setTimeout = nullptr;
    Signal setAccepted = nullptr;
    Signal getRefused = nullptr;
    Signal setRefused = nullptr;
};

template <typename Proxy>
constexpr bool kPublishes = std::is_base_of_v<ProtocolObjectSubscribeInterface, Proxy>;

template <typename Proxy>
void RaiseIfSet(Proxy& proxy, typename AnswerSignals<Proxy>::Signal signal, uint8_t attribute) {
    if (signal != nullptr) {
        emit(proxy.*signal)(attribute);
    }
}

/// An unanswered request, by operation: get and set raise the proxy's time-out signals, and on a
/// proxy that publishes, subscribe and unsubscribe raise subscribeTimeout and unsubscribeTimeout.
/// Other operations raise nothing.
template <typename Proxy>
void RaiseTimeoutSignal(Proxy& proxy, const halyard::protocol::ProtocolMessage& message,
                        const AnswerSignals<Proxy>& answers) {
    using halyard::protocol::message::Operation;
    switch (message.operation) {
    case Operation::Get:
        RaiseIfSet(proxy, answers.getTimeout, message.attribute);
        break;
    case Operation::Set:
        RaiseIfSet(proxy, answers.setTimeout, message.attribute);
        break;
    case Operation::Sub:
    case Operation::Unsub:
        if constexpr (kPublishes<Proxy>) {
            if (message.operation == Operation::Sub) {
                emit proxy.subscribeTimeout(message.attribute);
            } else {
                emit proxy.unsubscribeTimeout(message.attribute);
            }
        }
        break;
    default:
        break;
    }
}

/// An accepted request, by operation: a get is decoded by the proxy's `decodeGet`, a set raises
/// its acknowledgement, a subscription ackSubscribeResult(true). Other operations are not
/// consumed.
template <typename Proxy>
bool AnswerResponse(Proxy& proxy, const halyard::protocol::ProtocolMessage& message,
                    const AnswerSignals<Proxy>& answers,
                    bool (Proxy::*decodeGet)(const halyard::protocol::ProtocolMessage&)) {
    using halyard::protocol::message::Operation;
    switch (message.operation) {
    case Operation::Get:
        return (proxy.*decodeGet)(message);
    case Operation::Set:
        RaiseIfSet(proxy, answers.setAccepted, message.attribute);
        return true;
    case Operation::Sub:
        if constexpr (kPublishes<Proxy>) {
            emit proxy.ackSubscribeResult(true, message.attribute);
            return true;
        }
        return false;
    default:
        return false;
    }
}

/// A refused request, by operation: get and set raise the proxy's refusal signals, a
/// subscription ackSubscribeResult(false); other refusals raise nothing. Always consumed.
template <typename Proxy>
bool AnswerRefusal(Proxy& proxy, const halyard::protocol::ProtocolMessage& message,
                   const AnswerSignals<Proxy>& answers) {
    using halyard::protocol::message::Operation;
    switch (message.operation) {
    case Operation::Get:
        RaiseIfSet(proxy, answers.getRefused, message.attribute);
        break;
    case Operation::Set:
        RaiseIfSet(proxy, answers.setRefused, message.attribute);
        break;
    case Operation::Sub:
        if constexpr (kPublishes<Proxy>) {
            emit proxy.ackSubscribeResult(false, message.attribute);
        }
        break;
    default:
        break;
    }
    return true;
}

} // namespace communication::objects
