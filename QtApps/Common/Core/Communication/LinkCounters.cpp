#include "LinkCounters.h"

namespace communication {

namespace {
// Where the object, instance, attribute and operation stand in a serialised request.
constexpr std::size_t kKeyOffset = 2;
// The keep-alive: the protocol object's attribute 0, read with Get.
constexpr std::array<std::uint8_t, 4> kPingKey{0, 0, 0, 0};
} // namespace

void LinkCounters::RequestOut(const std::uint8_t* message) {
    RequestKey& key = mRequestKeys[message[0]];
    for (std::size_t i = 0; i < key.size(); ++i) {
        key[i] = message[kKeyOffset + i];
    }
    if (key == kPingKey) {
        mPingId = message[0];
        mPingOutstanding = true;
        mPingSentAt = mClock.ElapsedMilliseconds();
    }
    if (mWatching == 0) {
        return;
    }
    const std::uint64_t now = mClock.ElapsedMilliseconds();
    for (TimedOut& slot : mTimedOut) {
        if (!slot.watching) {
            continue;
        }
        if (now - slot.at > kRetryWindowMs) {
            slot.watching = false;
            --mWatching;
        } else if (slot.key == key) {
            slot.watching = false;
            --mWatching;
            ++mCounts.retries;
            return;
        }
    }
}

void LinkCounters::RequestTimedOut(std::uint8_t id) {
    ++mCounts.timeouts;
    if (mPingOutstanding && id == mPingId) {
        // Its id goes back to the request log and may soon name another request.
        mPingOutstanding = false;
    }
    const std::uint64_t now = mClock.ElapsedMilliseconds();
    // A free slot, else the oldest watch gives way.
    TimedOut* slot = &mTimedOut.front();
    for (TimedOut& candidate : mTimedOut) {
        if (!candidate.watching) {
            slot = &candidate;
            break;
        }
        if (candidate.at < slot->at) {
            slot = &candidate;
        }
    }
    if (!slot->watching) {
        ++mWatching;
    }
    slot->key = mRequestKeys[id];
    slot->at = now;
    slot->watching = true;
}

void LinkCounters::PingAnswered() {
    mPingOutstanding = false;
    const std::uint64_t roundTrip = mClock.ElapsedMilliseconds() - mPingSentAt;
    const auto roundTripMs = static_cast<std::uint32_t>(roundTrip);
    mLastPingMs = static_cast<std::int64_t>(roundTrip);
    ++mCounts.pings;
    mCounts.pingTotalMs += roundTrip;
    if (roundTripMs > mCounts.pingWorstMs) {
        mCounts.pingWorstMs = roundTripMs;
    }
}

LinkCounts LinkCounters::TakeCounts() {
    const LinkCounts taken = mCounts;
    mCounts = LinkCounts{};
    return taken;
}

} // namespace communication
