#include "LinkStatsHistory.h"

namespace communication {

void LinkStatsHistory::add(const LinkCounts& second) {
    mNewest = (mNewest + 1) % kSeconds;
    mSeconds[mNewest] = second;
    if (mCount < kSeconds) {
        ++mCount;
    }
}

LinkCounts LinkStatsHistory::lastMinute() const {
    LinkCounts minute;
    for (std::size_t i = 0; i < mCount; ++i) {
        minute += mSeconds[(mNewest + kSeconds - i) % kSeconds];
    }
    return minute;
}

} // namespace communication
