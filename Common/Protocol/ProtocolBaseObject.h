#pragma once

#include "ProtocolInterface.h"

namespace halyard::protocol {

/// Base of every protocol object: holds the message layer it sends through and answers the
/// other side's requests. Each reply keeps the request's id and header, carries no payload and
/// goes straight back through the message layer.
class ProtocolBaseObject {
public:
    explicit ProtocolBaseObject(ProtocolInterface& protocol) : mProtocol(protocol) {}
    virtual ~ProtocolBaseObject() = default;

protected:
    ProtocolBaseObject(const ProtocolBaseObject&) = default;

    ProtocolInterface& Messaging() const { return mProtocol; }

    bool ReplySuccess(const ProtocolMessage& request) const;
    bool ReplyInvalidAttribute(const ProtocolMessage& request) const;
    bool ReplyInvalidOperation(const ProtocolMessage& request) const;
    bool ReplyInvalidMessageData(const ProtocolMessage& request) const;

private:
    bool Reply(const ProtocolMessage& request, message::Type type, message::Status status) const;

    ProtocolInterface& mProtocol;
};

} // namespace halyard::protocol
