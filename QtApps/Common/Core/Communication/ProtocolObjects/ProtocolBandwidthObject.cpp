#include "ProtocolBandwidthObject.h"

namespace communication::objects {

using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

ProtocolBandwidthObject::ProtocolBandwidthObject(halyard::protocol::ProtocolInterface& protocol,
                                                 QObject* parent)
    : QObject(parent)
    , ProtocolMessageHandler(kObjectId, kInstance)
    , mProtocol(protocol) {}

bool ProtocolBandwidthObject::Handle(const ProtocolMessage& message) {
    if (message.type != Type::Request) {
        return false; // the application sends no bandwidth requests
    }
    ++mReceivedMessages;
    mReceivedPayloadBytes += message.payloadLength;

    ProtocolMessage ack;
    ack.id = message.id;
    ack.type = Type::AckStatus;
    ack.SetStatus(Status::Success);
    mProtocol.Send(ack);
    return true;
}

} // namespace communication::objects
