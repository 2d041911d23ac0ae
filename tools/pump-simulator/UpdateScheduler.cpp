#include "UpdateScheduler.h"

#include "SimulatorClock.h"
#include "SubscriptionTable.h"
#include "objects/SimObject.h"

namespace simulator {

UpdateScheduler::UpdateScheduler(SubscriptionTable& subscriptions, SimulatorClock& clock,
                                 QObject* parent)
    : QObject(parent)
    , mSubscriptions(subscriptions)
    , mClock(clock) {
    mTimer.setInterval(kScanIntervalMs);
    mTimer.setTimerType(Qt::PreciseTimer);
    connect(&mTimer, &QTimer::timeout, this, &UpdateScheduler::scan);
}

void UpdateScheduler::addObject(SimObject* object) {
    mObjects[{object->ObjectId(), object->Instance()}] = object;
}

void UpdateScheduler::setStreaming(bool streaming) {
    if (streaming) {
        mTimer.start();
    } else {
        mTimer.stop();
    }
}

void UpdateScheduler::scan() {
    const std::uint64_t now = mClock.ElapsedMilliseconds();
    for (SubscriptionTable::Subscription& subscription : mSubscriptions.subscriptions()) {
        const auto found = mObjects.find({subscription.object, subscription.instance});
        if (found == mObjects.end()) {
            continue;
        }
        SimObject* object = found->second;
        const bool periodDue = subscription.periodMs > 0 && now >= subscription.nextDueMs;
        QByteArray value;
        bool send = periodDue;
        if (subscription.onChange) {
            value = object->encodeAttribute(subscription.attribute);
            send = send || !subscription.sentOnce || value != subscription.lastSent;
        } else if (periodDue) {
            // Encoded only when due: some values (filter data) draw a fresh sample each time.
            value = object->encodeAttribute(subscription.attribute);
        }
        if (periodDue) {
            subscription.nextDueMs += subscription.periodMs;
            if (subscription.nextDueMs <= now) {
                subscription.nextDueMs = now + subscription.periodMs; // fell behind: no burst
            }
        }
        if (!send || value.isEmpty()) {
            continue;
        }
        if (subscription.onChange && subscription.periodMs > 0) {
            // With on-change the period is a heartbeat: at least one update per period, and a
            // change sent just now counts as this period's update.
            subscription.nextDueMs = now + subscription.periodMs;
        }
        object->sendUpdate(subscription.attribute, value);
        subscription.lastSent = value;
        subscription.sentOnce = true;
        ++mUpdatesSent;
    }
}

} // namespace simulator
