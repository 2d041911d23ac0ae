#include "ProtocolTestObject.h"

namespace communication::objects {

ProtocolTestObject::ProtocolTestObject(halyard::protocol::ProtocolInterface& protocol,
                                       QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

// Nothing is ever requested from the pump's test object, so no answer can belong to us.
bool ProtocolTestObject::HandleTimeout(const ProtocolMessage& /*message*/) {
    return false;
}
bool ProtocolTestObject::HandleResponse(const ProtocolMessage& /*message*/) {
    return false;
}
bool ProtocolTestObject::HandleRefusal(const ProtocolMessage& /*message*/) {
    return false;
}

bool ProtocolTestObject::HandlePumpRequest(const ProtocolMessage& message) {
    ++mTestRequests;
    ReplySuccess(message);
    return true;
}

} // namespace communication::objects
