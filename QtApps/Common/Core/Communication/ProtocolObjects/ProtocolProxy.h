#pragma once

#include "Common/Protocol/ProtocolBaseObject.h"
#include "Common/Protocol/ProtocolMessageHandler.h"
#include "Common/Protocol/SourcePath.h"
// Every signal type of the proxies, declared before any proxy's meta-object uses it.
#include "ProtocolObjectMetaTypes.h"
#include "ProtocolObjectSubscribeInterface.h"

#include <cstdint>
#include <string_view>
#include <type_traits>

namespace communication::objects {

/// What a received message means to a proxy.
enum class MessageKind {
    Timeout,  ///< the request log's report of an unanswered request (NakStatus, RequestAckTimeout)
    Response, ///< AckStatus: the pump accepted one of our requests
    Refusal,  ///< Nak, or NakStatus with any other status: the pump refused one of our requests
    PumpRequest, ///< a request from the pump, such as the update of a subscribed attribute
    Unknown,     ///< any other type
};

MessageKind Classify(const halyard::protocol::ProtocolMessage& message);

/// The shared part of every proxy: the one request message it reuses for all its requests, the
/// dispatch of received messages by kind, the update answer and the subscription requests.
/// Each proxy fills in the hooks with its own signals; its quirks stay in its own file.
///
/// Requests must be made on the thread that runs the message layer: they reuse one message.
class ProtocolProxy : public halyard::protocol::ProtocolBaseObject,
                      public halyard::protocol::ProtocolMessageHandler {
public:
    using ProtocolMessage = halyard::protocol::ProtocolMessage;
    using Operation = halyard::protocol::message::Operation;

    /// Dispatches to the hook of the message's kind; true when consumed.
    bool Handle(const ProtocolMessage& message) final;

protected:
    /// `sourcePath` names the proxy's source file in the log lines written here.
    ProtocolProxy(halyard::protocol::ProtocolInterface& protocol, uint8_t objectId,
                  uint8_t instance, std::string_view sourcePath);

    // The hooks, one per MessageKind. Each returns whether the message was consumed, which the
    // message layer reports as the receive result (Success or Failed).
    virtual bool HandleTimeout(const ProtocolMessage& message) = 0;
    virtual bool HandleResponse(const ProtocolMessage& message) = 0;
    virtual bool HandleRefusal(const ProtocolMessage& message) = 0;
    /// Default: only updates are accepted (HandleUpdate); any other operation is answered
    /// InvalidOperation.
    virtual bool HandlePumpRequest(const ProtocolMessage& message);
    /// Default: the proxy publishes nothing, so every attribute is answered InvalidAttribute.
    virtual bool HandleUpdate(const ProtocolMessage& message);
    virtual bool HandleUnknownType(const ProtocolMessage& message);

    ProtocolMessage& Request() { return mRequest; }
    bool SendRequest() { return Messaging().Send(mRequest); }

    /// Addresses the request message; its payload is left as the previous request left it.
    void Address(uint8_t attribute, Operation operation);
    /// Addresses the request message with no payload and sends it.
    bool SendEmpty(uint8_t attribute, Operation operation);

    /// Addresses the request message and writes the fields in order, little-endian; the payload
    /// then holds every field that fitted. False when one did not fit: the proxy logs and decides
    /// whether to send what was built.
    template <typename... Fields>
    bool WriteFields(uint8_t attribute, Operation operation, Fields... fields) {
        Address(attribute, operation);
        halyard::protocol::PayloadWriter writer = mRequest.Writer();
        const bool complete = (writer.Write(fields) && ...);
        writer.Close();
        return complete;
    }

    /// Subscription requests of a published attribute, once the proxy has checked it:
    /// operation Sub with period (u16) and on-change flag (u8), or Unsub with no payload.
    bool SendSubscribe(uint8_t attribute, uint16_t periodMs, bool onChange);
    bool SendUnsubscribe(uint8_t attribute);

    /// Reads one field from the start of the payload.
    template <typename T>
    static bool ReadValue(const ProtocolMessage& message, T& value) {
        halyard::protocol::PayloadReader reader = message.Reader();
        return reader.Read(value);
    }

    /// Answers an update: reads its value; on success hands it to `raise` and answers success,
    /// else answers InvalidMessageData. Returns whether the value was read, so that the proxy
    /// can log the failure under its own name.
    template <typename T, typename Raise>
    bool AnswerUpdate(const ProtocolMessage& message, Raise raise) {
        T value{};
        if (!ReadValue(message, value)) {
            ReplyInvalidMessageData(message);
            return false;
        }
        raise(value);
        ReplySuccess(message);
        return true;
    }

private:
    ProtocolMessage mRequest;
    std::string_view mSourcePath;
};

/// The time-out pattern of the proxies whose pump object publishes: an unanswered get, set,
/// subscribe or unsubscribe raises the matching time-out signal with its attribute; other
/// operations raise nothing. The get and set signals are the proxy's own.
template <typename Proxy>
void RaiseTimeoutSignal(Proxy& proxy, const halyard::protocol::ProtocolMessage& message,
                        void (Proxy::*getTimeout)(uint8_t), void (Proxy::*setTimeout)(uint8_t)) {
    static_assert(std::is_base_of_v<ProtocolObjectSubscribeInterface, Proxy>);
    using halyard::protocol::message::Operation;
    switch (message.operation) {
    case Operation::Get:
        emit(proxy.*getTimeout)(message.attribute);
        break;
    case Operation::Set:
        emit(proxy.*setTimeout)(message.attribute);
        break;
    case Operation::Sub:
        emit proxy.subscribeTimeout(message.attribute);
        break;
    case Operation::Unsub:
        emit proxy.unsubscribeTimeout(message.attribute);
        break;
    default:
        break;
    }
}

} // namespace communication::objects
