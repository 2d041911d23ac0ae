#pragma once

#include "LinkCounts.h"

#include "Common/Protocol/SystemInterface.h"

#include <array>
#include <cstdint>

namespace communication {

/// Counts what the link does: bytes and frames each way, errors by kind, time-outs, retries and
/// the round trip of the keep-alive ping. Built for the receive and transmit paths of the comms
/// thread: a frame costs an increment and a compare or two, the clock is read only for pings and
/// time-outs, nothing allocates and nothing is locked (one thread only). `TakeCounts` hands over
/// what was counted since the last call, for the link monitor's once-a-second snapshot.
///
/// The ping is the protocol object's keep-alive (object 0, instance 0, attribute 0, Get); its
/// round trip runs from the queueing of the request to the arrival of its answer. A retry is a
/// request sent again, with the same object, instance, attribute and operation, within a second
/// of its time-out: the senders (session, values, firmware update) retry at once.
class LinkCounters {
public:
    /// `clock` (not owned) gives monotonic milliseconds.
    explicit LinkCounters(const halyard::device::SystemInterface& clock) : mClock(clock) {}

    void BytesIn(std::size_t count) { mCounts.bytesIn += count; }
    void BytesOut(std::size_t count) { mCounts.bytesOut += count; }

    /// A received frame's message bytes, or a negative length for a malformed frame.
    void FrameIn(const std::uint8_t* message, std::int32_t length) {
        if (length < 0) {
            ++mCounts.transportErrors[static_cast<std::size_t>(TransportError::MalformedFrame)];
            return;
        }
        ++mCounts.framesIn;
        if (mPingOutstanding && length >= 2 && message[0] == mPingId && IsAnswer(message[1])) {
            PingAnswered();
        }
    }

    /// A decoded frame that the message layer did not handle cleanly (not for malformed ones,
    /// which FrameIn counted already).
    void MessageRejected(halyard::protocol::message::Status status) {
        ++mCounts.protocolErrors[ProtocolErrorIndex(status)];
    }

    /// A serialised message that went into the transmit queue.
    void FrameOut(const std::uint8_t* message, std::size_t length) {
        ++mCounts.framesOut;
        if (length >= kRequestHeader && message[1] == kRequest) {
            RequestOut(message);
        }
    }

    void TransportFailed(TransportError error) {
        ++mCounts.transportErrors[static_cast<std::size_t>(error)];
    }

    /// The request log timed out the request with this id. Called before the time-out is
    /// handed on, since its handler may send the retry at once.
    void RequestTimedOut(std::uint8_t id);

    /// What was counted since the last call; the counting starts afresh.
    LinkCounts TakeCounts();
    /// The last keep-alive round trip in milliseconds, or -1 before the first.
    std::int64_t LastPingMs() const { return mLastPingMs; }

private:
    static constexpr std::size_t kRequestHeader = 6;
    static constexpr std::uint8_t kRequest = 0;
    static constexpr std::size_t kRetryWatchSlots = 8;
    static constexpr std::uint64_t kRetryWindowMs = 1000;

    /// What a request addresses: object, instance, attribute, operation.
    using RequestKey = std::array<std::uint8_t, 4>;
    /// A timed-out request whose retry is awaited.
    struct TimedOut {
        RequestKey key{};
        std::uint64_t at = 0;
        bool watching = false;
    };

    static bool IsAnswer(std::uint8_t type) {
        return type == static_cast<std::uint8_t>(halyard::protocol::message::Type::AckStatus) ||
               type == static_cast<std::uint8_t>(halyard::protocol::message::Type::NakStatus);
    }

    void RequestOut(const std::uint8_t* message);
    void PingAnswered();

    const halyard::device::SystemInterface& mClock;
    LinkCounts mCounts;
    /// The last request sent under each id, so that a time-out (which carries only the id) can
    /// be matched with its retry.
    std::array<RequestKey, 256> mRequestKeys{};
    std::array<TimedOut, kRetryWatchSlots> mTimedOut{};
    std::size_t mWatching = 0;
    std::uint8_t mPingId = 0;
    bool mPingOutstanding = false;
    std::uint64_t mPingSentAt = 0;
    std::int64_t mLastPingMs = -1;
};

} // namespace communication
