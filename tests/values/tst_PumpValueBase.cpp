#include "tests/support/LogCapture.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectSubscribeInterface.h"
#include "QtApps/Common/Model/PumpValues/PumpValueBase.h"

#include <QSignalSpy>
#include <QTest>

#include <vector>

using communication::PumpValueBase;

namespace {

constexpr uint8_t kAttribute = 3;
constexpr uint8_t kOtherAttribute = 4;

// Records the subscription requests a value makes; the base never sees a real link here.
class RecordingSubscribeInterface
    : public communication::objects::ProtocolObjectSubscribeInterface {
public:
    struct Call {
        uint8_t attribute;
        uint16_t periodMs;
        bool onChange;
    };

    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override {
        subscribes.push_back({attribute, perdiodMs, onChange});
        return accept;
    }
    bool Unsubscribe(uint8_t attribute) override {
        unsubscribes.push_back(attribute);
        return accept;
    }

    std::vector<Call> subscribes;
    std::vector<uint8_t> unsubscribes;
    bool accept = true;
};

} // namespace

class PumpValueBaseTest : public QObject {
    Q_OBJECT

private slots:
    void getTimeouts_retryTwiceAbortOnThirdThenCountAgain();
    void setTimeouts_ackBetweenTimeoutsStartsCountingAgain();
    void setAck_setSuccessSeesTheCountBeforeItIsCleared();
    void setDefault_abortReportsFailureAndAckClearsBeforeSuccess();
    void subscribe_abortStaysUntilTheNextAcknowledgement();
    void subscribe_usesDefaultsOnRetryAfterExplicitParameters();
    void requestOnlyValue_ignoresSubscriptions();
    void boolText_namesBothValues();
    void log_namesTheValueItsSourceAndTheStep();
};

void PumpValueBaseTest::getTimeouts_retryTwiceAbortOnThirdThenCountAgain() {
    PumpValueBase value(kAttribute, QStringLiteral("ApplicationSpeed"));
    QSignalSpy retries(&value, &PumpValueBase::retryGetValue);
    QSignalSpy aborts(&value, &PumpValueBase::getValueAborted);

    value.onGetValueTimeout(kOtherAttribute);
    value.onAckGetValue(kOtherAttribute);
    QCOMPARE(retries.count(), 0);

    value.onGetValueTimeout(kAttribute);
    value.onGetValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 2);
    QCOMPARE(aborts.count(), 0);

    value.onGetValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 2);
    QCOMPARE(aborts.count(), 1);

    // The abort cleared the count: the next time-out is a first one again.
    value.onGetValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 3);

    // An acknowledgement in between does too.
    value.onGetValueTimeout(kAttribute);
    value.onAckGetValue(kAttribute);
    value.onGetValueTimeout(kAttribute);
    value.onGetValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 6);
    QCOMPARE(aborts.count(), 1);
}

void PumpValueBaseTest::setTimeouts_ackBetweenTimeoutsStartsCountingAgain() {
    PumpValueBase value(kAttribute, QStringLiteral("PrimeSpeed"));
    QSignalSpy retries(&value, &PumpValueBase::retrySetValue);
    QSignalSpy aborts(&value, &PumpValueBase::setValueAborted);
    QSignalSpy successes(&value, &PumpValueBase::setSuccess);

    value.onSetValueTimeout(kAttribute);
    value.onSetValueTimeout(kAttribute);
    value.onAckSetValue(kOtherAttribute);
    QCOMPARE(successes.count(), 0);
    value.onAckSetValue(kAttribute);
    QCOMPARE(successes.count(), 1);

    value.onSetValueTimeout(kAttribute);
    value.onSetValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 4);
    QCOMPARE(aborts.count(), 0);
    value.onSetValueTimeout(kOtherAttribute);
    QCOMPARE(aborts.count(), 0);
    value.onSetValueTimeout(kAttribute);
    QCOMPARE(aborts.count(), 1);
    QCOMPARE(retries.count(), 4);
}

void PumpValueBaseTest::setAck_setSuccessSeesTheCountBeforeItIsCleared() {
    PumpValueBase value(kAttribute, QStringLiteral("PrimeSpeed"));
    QSignalSpy aborts(&value, &PumpValueBase::setValueAborted);
    QSignalSpy retries(&value, &PumpValueBase::retrySetValue);
    value.onSetValueTimeout(kAttribute);
    value.onSetValueTimeout(kAttribute);

    // A time-out handled while setSuccess is being delivered still counts as the third.
    connect(&value, &PumpValueBase::setSuccess, &value,
            [&value] { value.onSetValueTimeout(kAttribute); });
    value.onAckSetValue(kAttribute);
    QCOMPARE(aborts.count(), 1);

    // And the acknowledgement cleared the count afterwards.
    disconnect(&value, &PumpValueBase::setSuccess, &value, nullptr);
    value.onSetValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 3);
}

void PumpValueBaseTest::setDefault_abortReportsFailureAndAckClearsBeforeSuccess() {
    PumpValueBase value(kAttribute, QStringLiteral("EnableLineSpeed"));
    QSignalSpy retries(&value, &PumpValueBase::retrySetDefaultValue);
    QSignalSpy results(&value, &PumpValueBase::setDefaultValueSuccess);

    value.onSetDefaultValueTimeout(kOtherAttribute);
    value.onSetDefaultValueTimeout(kAttribute);
    value.onSetDefaultValueTimeout(kAttribute);
    QCOMPARE(retries.count(), 2);
    QCOMPARE(results.count(), 0);
    value.onSetDefaultValueTimeout(kAttribute);
    QCOMPARE(results.count(), 1);
    QCOMPARE(results.at(0).at(0).toBool(), false);

    value.onSetDefaultValueTimeout(kAttribute);
    value.onSetDefaultValueTimeout(kAttribute);
    // Here the count is cleared before success is reported, so a time-out seen by a receiver
    // of the success is a first one and retries.
    connect(&value, &PumpValueBase::setDefaultValueSuccess, &value, [&value](bool success) {
        if (success) {
            value.onSetDefaultValueTimeout(kAttribute);
        }
    });
    value.onAckSetDefaultValue(kOtherAttribute);
    QCOMPARE(results.count(), 1);
    value.onAckSetDefaultValue(kAttribute);
    QCOMPARE(results.count(), 2);
    QCOMPARE(results.at(1).at(0).toBool(), true);
    QCOMPARE(retries.count(), 5);
}

void PumpValueBaseTest::subscribe_abortStaysUntilTheNextAcknowledgement() {
    RecordingSubscribeInterface proxy;
    PumpValueBase value(kAttribute, QStringLiteral("ApplicationSpeed"), &proxy, 1000, true);

    value.subscribe();
    QCOMPARE(proxy.subscribes.size(), 1u);

    emit proxy.subscribeTimeout(kOtherAttribute);
    emit proxy.subscribeTimeout(kAttribute);
    emit proxy.subscribeTimeout(kAttribute);
    QCOMPARE(proxy.subscribes.size(), 3u);

    // The third aborts, and so does every later one: the count is not reset on abort.
    emit proxy.subscribeTimeout(kAttribute);
    emit proxy.subscribeTimeout(kAttribute);
    QCOMPARE(proxy.subscribes.size(), 3u);

    // An acknowledgement for another attribute changes nothing; a negative one for this
    // attribute resets the count like a positive one.
    emit proxy.ackSubscribeResult(true, kOtherAttribute);
    emit proxy.subscribeTimeout(kAttribute);
    QCOMPARE(proxy.subscribes.size(), 3u);
    emit proxy.ackSubscribeResult(false, kAttribute);
    emit proxy.subscribeTimeout(kAttribute);
    QCOMPARE(proxy.subscribes.size(), 4u);

    // The unsubscribe time-out is not the value's business.
    emit proxy.unsubscribeTimeout(kAttribute);
    QCOMPARE(proxy.subscribes.size(), 4u);
    QVERIFY(proxy.unsubscribes.empty());
}

void PumpValueBaseTest::subscribe_usesDefaultsOnRetryAfterExplicitParameters() {
    RecordingSubscribeInterface proxy;
    PumpValueBase value(kAttribute, QStringLiteral("FilterDataCurrent"), &proxy, 30, false);

    value.subscribeWithParams(250, true);
    emit proxy.subscribeTimeout(kAttribute);
    value.unsubscribe();

    QCOMPARE(proxy.subscribes.size(), 2u);
    QCOMPARE(proxy.subscribes[0].periodMs, uint16_t{250});
    QCOMPARE(proxy.subscribes[0].onChange, true);
    QCOMPARE(proxy.subscribes[1].attribute, kAttribute);
    QCOMPARE(proxy.subscribes[1].periodMs, uint16_t{30});
    QCOMPARE(proxy.subscribes[1].onChange, false);
    QCOMPARE(proxy.unsubscribes, std::vector<uint8_t>{kAttribute});

    // A refused send is only logged: nothing is retried.
    proxy.accept = false;
    value.subscribe();
    QCOMPARE(proxy.subscribes.size(), 3u);
}

void PumpValueBaseTest::requestOnlyValue_ignoresSubscriptions() {
    PumpValueBase value(kAttribute, QStringLiteral("Acceleration"));
    value.subscribe();
    value.subscribeWithParams(100, true);
    value.unsubscribe();
    value.onSubscribeTimeout(kAttribute);
    QCOMPARE(value.attribute(), kAttribute);
    QCOMPARE(value.name(), QStringLiteral("Acceleration"));
}

void PumpValueBaseTest::boolText_namesBothValues() {
    QCOMPARE(PumpValueBase::boolText(true), QStringLiteral("True"));
    QCOMPARE(PumpValueBase::boolText(false), QStringLiteral("False"));
}

void PumpValueBaseTest::log_namesTheValueItsSourceAndTheStep() {
    testsupport::LogCapture log;
    RecordingSubscribeInterface proxy;
    proxy.accept = false;
    PumpValueBase value(kAttribute, QStringLiteral("PrimeSpeed"), &proxy, 1000, true);

    value.onGetValueTimeout(kAttribute);
    for (int i = 0; i < 3; ++i) {
        value.onSetValueTimeout(kAttribute);
    }
    value.onSetDefaultValueTimeout(kAttribute);
    value.onAckSubscribe(false, kAttribute);
    value.subscribe();
    value.unsubscribe();

    const QString source = QStringLiteral("QtApps/Common/Model/PumpValues/PumpValueBase:");
    QCOMPARE(log.count(source), 8);
    QCOMPARE(log.count(QStringLiteral(
                 " onGetValueTimeout - PrimeSpeed onGetValueTimeout, no response, retrying")),
             1);
    QCOMPARE(log.count(QStringLiteral("PrimeSpeed onSetValueTimeout, no response, retrying")), 2);
    QCOMPARE(log.count(QStringLiteral("PrimeSpeed onSetValueTimeout, no response, aborting Set")),
             1);
    QCOMPARE(
        log.count(QStringLiteral("PrimeSpeed onSetDefaultValueTimeout, no response, retrying")), 1);
    QCOMPARE(log.count(QStringLiteral(" onAckSubscribe - PrimeSpeed onAckResult, failed")), 1);
    QCOMPARE(log.count(QStringLiteral(
                 " subscribeWithParams - PrimeSpeed subscribe, can't send Subscribe")),
             1);
    QCOMPARE(
        log.count(QStringLiteral(" unsubscribe - PrimeSpeed unsubscribe, can't send Unsubscribe")),
        1);
}

QTEST_GUILESS_MAIN(PumpValueBaseTest)
#include "tst_PumpValueBase.moc"
