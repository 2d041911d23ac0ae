#pragma once

#include <cstdint>

namespace communication {

/// How often the application sends one request before it gives up on an answer. Retries are
/// the business of the senders (the session, the pump values, the firmware update), never of
/// the link; each counts the time-outs of its request in a row and asks this rule.
class SendLimit {
public:
    explicit constexpr SendLimit(std::uint32_t maxSends) : mMaxSends(maxSends) {}

    /// Counts one more time-out of the request; true while it may be sent again. Once the
    /// limit is reached the count stays where it is: the sender decides when it starts afresh.
    template <typename Count>
    constexpr bool countTimeout(Count& timeoutsInARow) const {
        ++timeoutsInARow;
        return timeoutsInARow < mMaxSends;
    }

    constexpr std::uint32_t maxSends() const { return mMaxSends; }

private:
    std::uint32_t mMaxSends;
};

/// Every request of the session and the values: the third time-out in a row ends it.
inline constexpr SendLimit kRequestSendLimit{3};

} // namespace communication
