#include "ProtocolRequestLog.h"

namespace halyard::protocol {

ProtocolRequestLog::ProtocolRequestLog(std::uint32_t timeoutMs, device::SystemInterface& system)
    : mTimeoutMs(timeoutMs)
    , mSystem(system) {
    mTimeoutMessage.type = message::Type::NakStatus;
    mTimeoutMessage.SetStatus(message::Status::RequestAckTimeout);
    mTimeoutMessage.payloadLength = 0;
}

std::uint32_t ProtocolRequestLog::Now() const {
    return static_cast<std::uint32_t>(mSystem.ElapsedMilliseconds());
}

void ProtocolRequestLog::ClearAll() {
    for (Entry& entry : mEntries) {
        entry.inUse = false;
    }
}

std::uint8_t ProtocolRequestLog::AddRequestHeader(ProtocolMessage& message) {
    for (std::size_t id = 0; id < kEntryCount; ++id) {
        Entry& entry = mEntries[id];
        if (entry.inUse) {
            continue;
        }
        message.id = static_cast<std::uint8_t>(id);
        entry.object = message.object;
        entry.instance = message.instance;
        entry.attribute = message.attribute;
        entry.operation = message.operation;
        entry.operationRaw = message.operationRaw;
        entry.sentAt = Now();
        entry.inUse = true;
        return kRequestLogged;
    }
    mSystem.DebugPrint("ProtocolRequestLog::AddRequestHeader: Request log full.\r\n");
    return kRequestLogFull;
}

bool ProtocolRequestLog::MatchResponse(ProtocolMessage& message) {
    Entry& entry = mEntries[message.id];
    if (!entry.inUse) {
        return true;
    }
    message.object = entry.object;
    message.instance = entry.instance;
    message.attribute = entry.attribute;
    message.operation = entry.operation;
    message.operationRaw = entry.operationRaw;
    entry.inUse = false;
    return false;
}

void ProtocolRequestLog::Release(std::uint8_t id) {
    mEntries[id].inUse = false;
}

void ProtocolRequestLog::CheckTimeouts(ProtocolMessagingInterface& handler) {
    const std::uint32_t now = Now();
    for (std::size_t id = 0; id < kEntryCount; ++id) {
        const Entry& entry = mEntries[id];
        if (entry.inUse && static_cast<std::uint32_t>(now - entry.sentAt) > mTimeoutMs) {
            mTimeoutMessage.id = static_cast<std::uint8_t>(id);
            handler.Receive(mTimeoutMessage);
        }
    }
}

std::size_t ProtocolRequestLog::OutstandingCount() const {
    std::size_t count = 0;
    for (const Entry& entry : mEntries) {
        count += entry.inUse ? 1u : 0u;
    }
    return count;
}

} // namespace halyard::protocol
