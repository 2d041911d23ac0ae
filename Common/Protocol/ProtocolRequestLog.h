#pragma once

#include "ProtocolRequestLogInterface.h"
#include "ProtocolRequestTimeoutInterface.h"
#include "SystemInterface.h"

#include <array>

namespace halyard::protocol {

/// One entry per transaction id for every request sent and not yet answered. It hands out ids
/// (the lowest free one, so ids are reused at once), gives responses back their request's header
/// (responses carry only id, type and status), and reports a request unanswered for longer than
/// the time-out once, as a NakStatus with status RequestAckTimeout. It never retries.
class ProtocolRequestLog final : public ProtocolRequestLogInterface,
                                 public ProtocolRequestTimeoutInterface {
public:
    static constexpr std::size_t kEntryCount = 256;

    /// `system` gives the clock and the debug output; it is not owned.
    ProtocolRequestLog(std::uint32_t timeoutMs, device::SystemInterface& system);

    void ClearAll() override;
    std::uint8_t AddRequestHeader(ProtocolMessage& message) override;
    bool MatchResponse(ProtocolMessage& message) override;
    void Release(std::uint8_t id) override;

    /// Reports every request whose age (now - sent at, unsigned 32-bit, so right across the
    /// clock's wrap) is greater than the time-out. A request thus times out between one and two
    /// scan intervals after it was sent.
    void CheckTimeouts(ProtocolMessagingInterface& handler) override;
    std::uint32_t TimeoutInterval() const override { return mTimeoutMs; }

    std::size_t OutstandingCount() const;

private:
    struct Entry {
        std::uint8_t object = 0xFF;
        std::uint8_t instance = 0xFF;
        std::uint8_t attribute = 0xFF;
        message::Operation operation = message::Operation{0xFF};
        std::uint8_t operationRaw = 0xFF;
        std::uint32_t sentAt = 0;
        bool inUse = false;
    };

    std::uint32_t Now() const;

    std::array<Entry, kEntryCount> mEntries{};
    std::uint32_t mTimeoutMs;
    device::SystemInterface& mSystem;
    ProtocolMessage mTimeoutMessage;
};

} // namespace halyard::protocol
