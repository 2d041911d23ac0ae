#include "ProtocolRequestLogWrapper.h"

namespace communication {

using halyard::protocol::ProtocolMessage;

ProtocolRequestLogWrapper::ProtocolRequestLogWrapper() : mLog(kTimeoutMs, mSystem) {}

void ProtocolRequestLogWrapper::ClearAll() {
    mLog.ClearAll();
}

std::uint8_t ProtocolRequestLogWrapper::AddRequestHeader(ProtocolMessage& message) {
    return mLog.AddRequestHeader(message);
}

bool ProtocolRequestLogWrapper::MatchResponse(ProtocolMessage& message) {
    return mLog.MatchResponse(message);
}

void ProtocolRequestLogWrapper::Release(std::uint8_t id) {
    mLog.Release(id);
}

void ProtocolRequestLogWrapper::CheckTimeouts(
    halyard::protocol::ProtocolMessagingInterface& handler) {
    mLog.CheckTimeouts(handler);
}

std::uint32_t ProtocolRequestLogWrapper::TimeoutInterval() const {
    return mLog.TimeoutInterval();
}

} // namespace communication
