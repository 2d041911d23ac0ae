#pragma once

#include <QObject>
#include <QString>

#include <cstdint>

namespace communication {

namespace objects {
class ProtocolObjectSubscribeInterface;
}

/// Base of every pump value: one attribute of one protocol object proxy. It sends no Get or Set
/// itself; it keeps the time-out counts of the four kinds of request, decides when to retry and
/// when to give up (a request is sent at most three times), and re-sends Subscribe on its own.
/// Every time-out and acknowledgement slot ignores a call for another attribute.
class PumpValueBase : public QObject {
    Q_OBJECT

public:
    /// Streaming value: subscriptions go through `subscribeInterface` (not owned, may be null).
    PumpValueBase(uint8_t attribute, const QString& name,
                  objects::ProtocolObjectSubscribeInterface* subscribeInterface,
                  uint16_t defaultPeriodMs, bool defaultOnChange);
    /// Request-only value: no subscription; subscribe and unsubscribe do nothing.
    PumpValueBase(uint8_t attribute, const QString& name);

    uint8_t attribute() const { return mAttribute; }
    const QString& name() const { return mName; }

    /// "True" or "False", for booleans in log messages.
    static QString boolText(bool value);

signals:
    void retryGetValue();
    void retrySetValue();
    void retrySetDefaultValue();
    void setSuccess();
    void getValueAborted();
    void setValueAborted();
    void setDefaultValueSuccess(bool success);

public slots:
    void subscribe();
    /// The period and flag are used once; a subscribe retry uses the defaults again.
    void subscribeWithParams(uint16_t perdiodMs, bool onChange);
    void unsubscribe();

    void onSubscribeTimeout(uint8_t attribute);
    void onGetValueTimeout(uint8_t attribute);
    void onSetValueTimeout(uint8_t attribute);
    void onSetDefaultValueTimeout(uint8_t attribute);
    void onAckSubscribe(bool success, uint8_t attribute);
    void onAckGetValue(uint8_t attribute);
    void onAckSetValue(uint8_t attribute);
    void onAckSetDefaultValue(uint8_t attribute);

private:
    /// Counts one more time-out; true while the request may still be retried.
    static bool countTimeout(uint64_t& count);
    void sendSubscribe(uint16_t periodMs, bool onChange);

    objects::ProtocolObjectSubscribeInterface* mSubscribeInterface = nullptr;
    uint16_t mDefaultPeriodMs = 0;
    bool mDefaultOnChange = false;
    QString mName;
    uint64_t mSubscribeTimeouts = 0;
    uint64_t mGetTimeouts = 0;
    uint64_t mSetTimeouts = 0;
    uint64_t mSetDefaultTimeouts = 0;
    uint8_t mAttribute = 0;
};

} // namespace communication
