#include "ProtocolObject.h"

#include "QtApps/Common/Logger/Log.h"

namespace communication::objects {

using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

ProtocolObject::ProtocolObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : QObject(parent)
    , ProtocolMessageHandler(kObjectId, kInstance)
    , mProtocol(protocol) {
    mRequest.type = Type::Request;
    mRequest.object = kObjectId;
    mRequest.instance = kInstance;
    mRequest.attribute = KeepAlive;
}

bool ProtocolObject::RequestKeepAlive() {
    return SendWithoutPayload(KeepAlive, Operation::Get);
}

bool ProtocolObject::RequestVersion() {
    return SendWithoutPayload(Version, Operation::Get);
}

bool ProtocolObject::RequestStopSession() {
    return SendWithoutPayload(StopSession, Operation::Set);
}

// A payload that does not fit is logged and the request goes out all the same: the pump then
// refuses it, and the session learns of that through its time-outs.
bool ProtocolObject::RequestStartSession(uint16_t value) {
    mRequest.attribute = StartSession;
    mRequest.SetOperation(Operation::Set);
    auto writer = mRequest.Writer();
    if (!writer.Write(value)) {
        BWL_LOG_WARN("RequestStartSession", QStringLiteral("Protocol message data write failure"));
    }
    writer.Close();
    return mProtocol.Send(mRequest);
}

bool ProtocolObject::SendWithoutPayload(Attribute attribute, Operation operation) {
    mRequest.attribute = attribute;
    mRequest.SetOperation(operation);
    mRequest.payloadLength = 0;
    return mProtocol.Send(mRequest);
}

bool ProtocolObject::Handle(const ProtocolMessage& message) {
    if (message.type == Type::NakStatus && message.status == Status::RequestAckTimeout) {
        HandleTimeout(message.attribute);
        return true;
    }
    // Any answer to a get counts, a refusal included: a pump that refuses a ping is still there.
    if (message.operation == Operation::Get) {
        if (message.attribute == KeepAlive) {
            emit getKeepAliveResponse();
            return true;
        }
        if (message.attribute == Version) {
            return GetVersionResponseHandler(message);
        }
        return false;
    }
    // A refused start or stop is not reported: the session hears of it through its time-outs.
    if (message.operation == Operation::Set && message.type == Type::AckStatus) {
        if (message.attribute == StartSession) {
            emit setStartSessionResponse();
        } else if (message.attribute == StopSession) {
            emit setStopSessionResponse();
        }
        return true;
    }
    return false;
}

// By attribute alone, whatever the operation byte. An unanswered version request is not
// reported: the probe waits a bounded time instead.
void ProtocolObject::HandleTimeout(std::uint8_t attribute) {
    switch (attribute) {
    case KeepAlive:
        emit keepAliveTimeout();
        break;
    case StartSession:
        emit sessionStartTimeout();
        break;
    case StopSession:
        emit sessionStopTimeout();
        break;
    default:
        break;
    }
}

// Bytes read before a short payload ends stay stored.
bool ProtocolObject::GetVersionResponseHandler(const ProtocolMessage& message) {
    auto reader = message.Reader();
    if (!reader.Read(mVersion.major) || !reader.Read(mVersion.minor) ||
        !reader.Read(mVersion.patch)) {
        BWL_LOG_WARN("GetVersionResponseHandler",
                     QStringLiteral("Protocol message data read failure"));
        return false;
    }
    emit getVersionResponse(mVersion);
    return true;
}

} // namespace communication::objects
