#pragma once

#include "ProtocolMessage.h"

namespace halyard::protocol {

/// Receives the messages addressed to one object instance. The message layer routes by the pair
/// (object id, instance) given at construction.
class ProtocolMessageHandler {
public:
    ProtocolMessageHandler(std::uint8_t objectId, std::uint8_t instance)
        : mObjectId(objectId)
        , mInstance(instance) {}
    virtual ~ProtocolMessageHandler() = default;

    /// True when the message was consumed.
    virtual bool Handle(const ProtocolMessage& message) = 0;

    std::uint8_t ObjectId() const { return mObjectId; }
    std::uint8_t Instance() const { return mInstance; }

protected:
    ProtocolMessageHandler(const ProtocolMessageHandler&) = default;
    ProtocolMessageHandler& operator=(const ProtocolMessageHandler&) = default;

private:
    std::uint8_t mObjectId;
    std::uint8_t mInstance;
};

} // namespace halyard::protocol
