#include "SimObject.h"

#include "tools/pump-simulator/SimulatorClock.h"
#include "tools/pump-simulator/SubscriptionTable.h"

#include <QDebug>

#include <algorithm>

namespace simulator {

namespace msg = halyard::protocol::message;
using halyard::protocol::PayloadWriter;

SimObject::SimObject(const Context& context, std::uint8_t object, std::uint8_t instance,
                     std::initializer_list<std::uint8_t> publishedAttributes)
    : ProtocolBaseObject(context.protocol)
    , ProtocolMessageHandler(object, instance)
    , mSubscriptions(context.subscriptions)
    , mClock(context.clock)
    , mPublished(publishedAttributes) {}

bool SimObject::publishes(std::uint8_t attribute) const {
    return std::find(mPublished.begin(), mPublished.end(), attribute) != mPublished.end();
}

bool SimObject::Handle(const Message& message) {
    switch (message.type) {
    case msg::Type::AckStatus:
        onAnswer(message);
        return true; // the application took one of our updates
    case msg::Type::NakStatus:
        onAnswer(message);
        if (message.status == Status::RequestAckTimeout) {
            ++mMissedUpdates;
        } else {
            qWarning("Object %u/%u: update of attribute %u refused: %s", ObjectId(), Instance(),
                     message.attribute, msg::StatusName(message.status));
        }
        return true;
    case msg::Type::Request:
        break;
    default:
        return false;
    }
    switch (message.operation) {
    case msg::Operation::Sub:
        return handleSubscribe(message);
    case msg::Operation::Unsub:
        return handleUnsubscribe(message);
    default:
        onRequest(message);
        return true;
    }
}

bool SimObject::handleSubscribe(const Message& request) {
    if (!publishes(request.attribute)) {
        return reply(request, Status::InvalidSubscribeRequest);
    }
    auto reader = request.Reader();
    std::uint16_t periodMs = 0;
    std::uint8_t onChange = 0;
    if (!reader.Read(periodMs) || !reader.Read(onChange)) {
        return refuseData(request, "subscribe payload too short");
    }
    if (periodMs == 0 && onChange == 0) {
        return reply(request, Status::InvalidSubscribeRequest); // it would never send anything
    }
    const auto result = mSubscriptions.add(ObjectId(), Instance(), request.attribute, periodMs,
                                           onChange != 0, mClock.ElapsedMilliseconds());
    if (result == SubscriptionTable::AddResult::Full) {
        qWarning("Object %u/%u: subscription of attribute %u refused, %zu held", ObjectId(),
                 Instance(), request.attribute, mSubscriptions.size());
        return reply(request, Status::MaxSubscriptionsExceeded);
    }
    return reply(request, Status::Success);
}

bool SimObject::handleUnsubscribe(const Message& request) {
    if (!mSubscriptions.remove(ObjectId(), Instance(), request.attribute)) {
        return reply(request, Status::NoSubscription);
    }
    return reply(request, Status::Success);
}

bool SimObject::writeAttribute(std::uint8_t, PayloadWriter&) {
    return false;
}

QByteArray SimObject::encodeAttribute(std::uint8_t attribute) {
    Message scratch;
    PayloadWriter writer = scratch.Writer();
    if (!writeAttribute(attribute, writer)) {
        return {};
    }
    writer.Close();
    return QByteArray(reinterpret_cast<const char*>(scratch.payload.data()), scratch.payloadLength);
}

bool SimObject::sendUpdate(std::uint8_t attribute, const QByteArray& value) {
    Message update;
    update.type = msg::Type::Request;
    update.object = ObjectId();
    update.instance = Instance();
    update.attribute = attribute;
    update.SetOperation(msg::Operation::Update);
    PayloadWriter writer = update.Writer();
    writer.WriteBytes(reinterpret_cast<const std::uint8_t*>(value.constData()),
                      static_cast<std::size_t>(value.size()));
    writer.Close();
    return Messaging().Send(update);
}

bool SimObject::reply(const Message& request, Status status) const {
    switch (status) {
    case Status::Success:
        return ReplySuccess(request);
    case Status::InvalidAttribute:
        return ReplyInvalidAttribute(request);
    case Status::InvalidOperation:
        return ReplyInvalidOperation(request);
    case Status::InvalidMessageData:
        return ReplyInvalidMessageData(request);
    default:
        break;
    }
    Message answer;
    answer.id = request.id;
    answer.object = request.object;
    answer.instance = request.instance;
    answer.attribute = request.attribute;
    answer.operation = request.operation;
    answer.operationRaw = request.operationRaw;
    answer.type = msg::Type::NakStatus;
    answer.SetStatus(status);
    return Messaging().Send(answer);
}

bool SimObject::replyWithPayload(const Message& request, const QByteArray& payload) const {
    Message answer;
    answer.id = request.id;
    answer.object = request.object;
    answer.instance = request.instance;
    answer.attribute = request.attribute;
    answer.operation = request.operation;
    answer.operationRaw = request.operationRaw;
    answer.type = msg::Type::AckStatus;
    answer.SetStatus(Status::Success);
    PayloadWriter writer = answer.Writer();
    writer.WriteBytes(reinterpret_cast<const std::uint8_t*>(payload.constData()),
                      static_cast<std::size_t>(payload.size()));
    writer.Close();
    return Messaging().Send(answer);
}

bool SimObject::replyWithAttribute(const Message& request) {
    const QByteArray value = encodeAttribute(request.attribute);
    if (value.isEmpty()) {
        qWarning("Object %u/%u: get of unknown attribute %u", ObjectId(), Instance(),
                 request.attribute);
        return reply(request, Status::InvalidAttribute);
    }
    return replyWithPayload(request, value);
}

bool SimObject::refuseData(const Message& request, const char* what) const {
    qWarning("Object %u/%u attribute %u %s: %s", ObjectId(), Instance(), request.attribute,
             msg::OperationName(request.operation), what);
    return reply(request, Status::InvalidMessageData);
}

} // namespace simulator
