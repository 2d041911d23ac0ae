#include "ProtocolBaseObject.h"

namespace halyard::protocol {

using message::Status;
using message::Type;

bool ProtocolBaseObject::Reply(const ProtocolMessage& request, Type type, Status status) const {
    ProtocolMessage reply;
    reply.id = request.id;
    reply.object = request.object;
    reply.instance = request.instance;
    reply.attribute = request.attribute;
    reply.operation = request.operation;
    reply.operationRaw = request.operationRaw;
    reply.type = type;
    reply.SetStatus(status);
    reply.payloadLength = 0;
    return mProtocol.Send(reply);
}

bool ProtocolBaseObject::ReplySuccess(const ProtocolMessage& request) const {
    return Reply(request, Type::AckStatus, Status::Success);
}

bool ProtocolBaseObject::ReplyInvalidAttribute(const ProtocolMessage& request) const {
    return Reply(request, Type::NakStatus, Status::InvalidAttribute);
}

bool ProtocolBaseObject::ReplyInvalidOperation(const ProtocolMessage& request) const {
    return Reply(request, Type::NakStatus, Status::InvalidOperation);
}

bool ProtocolBaseObject::ReplyInvalidMessageData(const ProtocolMessage& request) const {
    return Reply(request, Type::NakStatus, Status::InvalidMessageData);
}

} // namespace halyard::protocol
