#include "SessionSimObject.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kKeepAlive = 0;
constexpr std::uint8_t kVersion = 1;
constexpr std::uint8_t kStartSession = 2;
constexpr std::uint8_t kStopSession = 3;
} // namespace attribute

SessionSimObject::SessionSimObject(const Context& context, halyard::SemanticVersion protocolVersion,
                                   Callbacks callbacks)
    : SimObject(context, 0, 0)
    , mVersion(protocolVersion)
    , mCallbacks(std::move(callbacks)) {}

bool SessionSimObject::writeAttribute(std::uint8_t attr, halyard::protocol::PayloadWriter& writer) {
    if (attr != attribute::kVersion) {
        return false;
    }
    return writer.Write(mVersion.major) && writer.Write(mVersion.minor) &&
           writer.Write(mVersion.patch);
}

void SessionSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        if (request.attribute == attribute::kKeepAlive) {
            reply(request, Status::Success);
        } else {
            replyWithAttribute(request);
        }
        return;
    }
    if (request.operation != msg::Operation::Set) {
        reply(request, Status::InvalidOperation);
        return;
    }
    switch (request.attribute) {
    case attribute::kStartSession:
        applySet<std::uint16_t>(request, [this](std::uint16_t value) {
            mCallbacks.startSession(value);
            return true;
        });
        break;
    case attribute::kStopSession:
        reply(request, Status::Success);
        mCallbacks.stopSession();
        break;
    default:
        reply(request, Status::InvalidAttribute);
        break;
    }
}

} // namespace simulator
