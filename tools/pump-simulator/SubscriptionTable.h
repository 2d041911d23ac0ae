#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace simulator {

/// The attributes that the application has subscribed, with their period and on-change flag,
/// and what was last sent for each. Holds at most a configured number of subscriptions.
class SubscriptionTable {
public:
    struct Subscription {
        std::uint8_t object = 0;
        std::uint8_t instance = 0;
        std::uint8_t attribute = 0;
        std::uint16_t periodMs = 0;
        bool onChange = false;
        std::uint64_t nextDueMs = 0;
        QByteArray lastSent;
        bool sentOnce = false;
    };

    enum class AddResult { Added, Replaced, Full };

    explicit SubscriptionTable(std::size_t limit) : mLimit(limit) {}

    /// A second subscription of the same attribute replaces the first (and its period).
    AddResult add(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                  std::uint16_t periodMs, bool onChange, std::uint64_t nowMs);
    bool remove(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute);
    void clear() { mSubscriptions.clear(); }

    std::vector<Subscription>& subscriptions() { return mSubscriptions; }
    std::size_t size() const { return mSubscriptions.size(); }
    std::size_t limit() const { return mLimit; }

private:
    std::size_t mLimit;
    std::vector<Subscription> mSubscriptions;
};

} // namespace simulator
