#pragma once

#include <QObject>
#include <QTimer>

#include <map>

namespace simulator {

class SimObject;
class SimulatorClock;
class SubscriptionTable;

/// Sends the updates of subscribed attributes: at each subscription's period, and, for
/// subscriptions with the on-change flag, as soon as the value's bytes differ from what was last
/// sent (the period then counts from the last update). Runs only while a session is open.
class UpdateScheduler : public QObject {
    Q_OBJECT

public:
    static constexpr int kScanIntervalMs = 5;

    UpdateScheduler(SubscriptionTable& subscriptions, SimulatorClock& clock,
                    QObject* parent = nullptr);

    void addObject(SimObject* object);
    void setStreaming(bool streaming);
    bool streaming() const { return mTimer.isActive(); }

    quint64 updatesSent() const { return mUpdatesSent; }

private:
    void scan();

    SubscriptionTable& mSubscriptions;
    SimulatorClock& mClock;
    std::map<std::pair<std::uint8_t, std::uint8_t>, SimObject*> mObjects;
    QTimer mTimer;
    quint64 mUpdatesSent = 0;
};

} // namespace simulator
