#pragma once

#include "Common/Protocol/ProtocolBaseObject.h"
#include "Common/Protocol/ProtocolMessageHandler.h"

#include <QByteArray>

#include <initializer_list>
#include <vector>

namespace simulator {

class SubscriptionTable;
class SimulatorClock;

/// Base of the pump's protocol objects. It takes the application's requests for one object
/// instance, handles subscribe and unsubscribe for the attributes the object publishes, and
/// sends the updates of subscribed attributes as requests (operation Update) that the
/// application acknowledges. Subclasses answer the other operations and encode their attributes.
class SimObject : public halyard::protocol::ProtocolBaseObject,
                  public halyard::protocol::ProtocolMessageHandler {
public:
    using Message = halyard::protocol::ProtocolMessage;
    using Status = halyard::protocol::message::Status;

    struct Context {
        halyard::protocol::ProtocolInterface& protocol;
        SubscriptionTable& subscriptions;
        SimulatorClock& clock;
    };

    SimObject(const Context& context, std::uint8_t object, std::uint8_t instance,
              std::initializer_list<std::uint8_t> publishedAttributes = {});

    bool Handle(const Message& message) final;

    bool publishes(std::uint8_t attribute) const;
    /// The current value of an attribute as it travels in a get answer or an update; empty when
    /// the object has no such attribute.
    QByteArray encodeAttribute(std::uint8_t attribute);
    /// Sends one update request for a published attribute with the given value bytes.
    bool sendUpdate(std::uint8_t attribute, const QByteArray& value);

    /// Updates the application did not acknowledge in time.
    quint64 missedUpdates() const { return mMissedUpdates; }

protected:
    /// Every request other than subscribe and unsubscribe.
    virtual void onRequest(const Message& request) = 0;
    /// The application's answer to one of this object's own requests (AckStatus or NakStatus,
    /// also the time-out the request log reports); updates need nothing more than the count of
    /// missed ones.
    virtual void onAnswer(const Message& /*answer*/) {}
    /// Writes an attribute's value for gets and updates; false when there is no such attribute.
    virtual bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer);

    /// Answers with AckStatus (Success) or NakStatus (any other status), no payload.
    bool reply(const Message& request, Status status) const;
    /// Answers a get with the attribute's value, or InvalidAttribute.
    bool replyWithAttribute(const Message& request);
    /// Answers with AckStatus and the given payload bytes.
    bool replyWithPayload(const Message& request, const QByteArray& payload) const;
    /// Logs and refuses a request whose payload could not be read or holds an impossible value.
    bool refuseData(const Message& request, const char* what) const;

    /// Reads one field from the start of a request's payload.
    template <typename T>
    static bool readField(const Message& request, T& value) {
        return request.Reader().Read(value);
    }

    /// Reads a set's value, applies it and answers: InvalidMessageData when the payload is
    /// short or `apply` finds the value impossible, else Success.
    template <typename T, typename Apply>
    bool applySet(const Message& request, Apply apply) {
        T value{};
        if (!readField(request, value)) {
            return refuseData(request, "payload too short");
        }
        if (!apply(value)) {
            return refuseData(request, "value out of range");
        }
        return reply(request, Status::Success);
    }

    SimulatorClock& clock() const { return mClock; }

private:
    bool handleSubscribe(const Message& request);
    bool handleUnsubscribe(const Message& request);

    SubscriptionTable& mSubscriptions;
    SimulatorClock& mClock;
    std::vector<std::uint8_t> mPublished;
    quint64 mMissedUpdates = 0;
};

} // namespace simulator
