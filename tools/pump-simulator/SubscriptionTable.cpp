#include "SubscriptionTable.h"

#include <algorithm>

namespace simulator {

SubscriptionTable::AddResult SubscriptionTable::add(std::uint8_t object, std::uint8_t instance,
                                                    std::uint8_t attribute, std::uint16_t periodMs,
                                                    bool onChange, std::uint64_t nowMs) {
    Subscription fresh{object, instance, attribute, periodMs, onChange, nowMs, {}, false};
    for (Subscription& existing : mSubscriptions) {
        if (existing.object == object && existing.instance == instance &&
            existing.attribute == attribute) {
            existing = fresh;
            return AddResult::Replaced;
        }
    }
    if (mSubscriptions.size() >= mLimit) {
        return AddResult::Full;
    }
    mSubscriptions.push_back(fresh);
    return AddResult::Added;
}

bool SubscriptionTable::remove(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute) {
    const auto found =
        std::find_if(mSubscriptions.begin(), mSubscriptions.end(), [&](const Subscription& s) {
            return s.object == object && s.instance == instance && s.attribute == attribute;
        });
    if (found == mSubscriptions.end()) {
        return false;
    }
    mSubscriptions.erase(found);
    return true;
}

} // namespace simulator
