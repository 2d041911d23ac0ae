#pragma once

#include "Common/Protocol/ProtocolBaseObject.h"
#include "Common/Protocol/ProtocolMessageHandler.h"
#include "PayloadFields.h"
#include "QtApps/Common/Logger/Log.h"

// Every signal type of the proxies, declared before any proxy's meta-object uses it.
#include "ProtocolObjectMetaTypes.h"

#include <cstdint>
#include <string_view>
#include <tuple>
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

/// The function label of a proxy's log line; the file and line are those of the code that names
/// the label. kNotLogged writes no line.
using LogSite = logger::Site;

inline constexpr const char* kNotLogged = nullptr;

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
    ProtocolProxy(halyard::protocol::ProtocolInterface& protocol, uint8_t objectId,
                  uint8_t instance);

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

    /// Writes the fields of a setter's request; when one does not fit, logs "Protocol message
    /// data write failure" under `site` and still sends what was built.
    template <typename... Fields>
    bool SendFields(LogSite site, uint8_t attribute, Operation operation, Fields... fields) {
        if (!WriteFields(attribute, operation, fields...)) {
            LogWriteFailure(site);
        }
        return SendRequest();
    }

    /// As SendFields, but a request that did not fit is not sent.
    template <typename... Fields>
    bool SendCompleteFields(LogSite site, uint8_t attribute, Operation operation,
                            Fields... fields) {
        if (!WriteFields(attribute, operation, fields...)) {
            LogWriteFailure(site);
            return false;
        }
        return SendRequest();
    }

    /// Decodes the answer's payload into the arguments of the proxy's `signal` and emits it.
    /// When the payload is too short, logs "Protocol message data read failure" under `site`,
    /// emits nothing and returns false. `decode` reads the arguments (ReadFieldsInOrder unless the
    /// proxy has its own layout).
    ///
    /// An answer that cannot be read is handled as no answer: the request's time-out is reported
    /// too, so its retry rule asks again. Ids are reused at once, so a late or repeated answer to
    /// an earlier request can take the place of this request's own, which then finds its entry
    /// gone; without the time-out nothing would ever ask again.
    template <typename Proxy, typename... Args, typename Decode = ReadFieldsInOrder>
    bool EmitDecoded(const ProtocolMessage& message, void (Proxy::*signal)(Args...), LogSite site,
                     Decode decode = {}) {
        if (!DecodeAndEmit(message, signal, decode)) {
            LogReadFailure(site);
            HandleTimeout(message);
            return false;
        }
        return true;
    }

    /// Answers an update of a published attribute: decodes it as EmitDecoded does, emits and
    /// answers success; when it is too short logs under `site` (unless kNotLogged) and answers
    /// InvalidMessageData. An update is always consumed: returns true.
    template <typename Proxy, typename... Args, typename Decode = ReadFieldsInOrder>
    bool AnswerUpdate(const ProtocolMessage& message, void (Proxy::*signal)(Args...), LogSite site,
                      Decode decode = {}) {
        if (!DecodeAndEmit(message, signal, decode)) {
            LogReadFailure(site);
            ReplyInvalidMessageData(message);
            return true;
        }
        ReplySuccess(message);
        return true;
    }

    /// The two payload failure lines, at the site that names the function; nothing for
    /// kNotLogged.
    void LogReadFailure(const LogSite& site) const;
    void LogWriteFailure(const LogSite& site) const;

private:
    template <typename Proxy, typename... Args, typename Decode>
    bool DecodeAndEmit(const ProtocolMessage& message, void (Proxy::*signal)(Args...),
                       Decode& decode) {
        static_assert(std::is_base_of_v<ProtocolProxy, Proxy>);
        std::tuple<std::decay_t<Args>...> values;
        halyard::protocol::PayloadReader reader = message.Reader();
        const auto read = [&reader, &decode](auto&... value) { return decode(reader, value...); };
        if (!std::apply(read, values)) {
            return false;
        }
        Proxy& proxy = static_cast<Proxy&>(*this);
        std::apply([&proxy, signal](const auto&... value) { emit(proxy.*signal)(value...); },
                   values);
        return true;
    }

    ProtocolMessage mRequest;
};

} // namespace communication::objects
