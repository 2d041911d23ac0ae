#pragma once

#include "LinkCounts.h"

#include <array>
#include <cstddef>

namespace communication {

/// The last minute of the link, second by second: each second's counts go in, the oldest of
/// sixty drops out, and the minute's figures are the sum. Fixed size; nothing allocates.
class LinkStatsHistory {
public:
    static constexpr std::size_t kSeconds = 60;

    /// Adds one second's counts.
    void add(const LinkCounts& second);

    const LinkCounts& lastSecond() const { return mSeconds[mNewest]; }
    /// The seconds held, added up.
    LinkCounts lastMinute() const;
    /// How many seconds are held: up to kSeconds.
    int seconds() const { return static_cast<int>(mCount); }

private:
    std::array<LinkCounts, kSeconds> mSeconds{};
    std::size_t mNewest = kSeconds - 1;
    std::size_t mCount = 0;
};

} // namespace communication
