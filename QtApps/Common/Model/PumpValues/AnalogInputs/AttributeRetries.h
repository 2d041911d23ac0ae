#pragma once

#include "QtApps/Common/Core/Communication/SendLimit.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace communication {

/// Time-outs in a row per attribute, for the analog values that book their own requests, under
/// the send limit of every value.
template <std::size_t AttributeCount>
class AttributeRetries {
public:
    /// Counts a time-out; true while the request may be sent again. The third in a row gives
    /// up and starts the count afresh.
    bool mayRetry(uint8_t attribute) {
        uint8_t& count = mCounts[attribute];
        if (kRequestSendLimit.countTimeout(count)) {
            return true;
        }
        count = 0;
        return false;
    }
    void answered(uint8_t attribute) { mCounts[attribute] = 0; }
    static constexpr bool isValid(uint8_t attribute) { return attribute < AttributeCount; }

private:
    std::array<uint8_t, AttributeCount> mCounts{};
};

} // namespace communication
