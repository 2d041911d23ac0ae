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

// One kind of request as the value counts it: its time-out and acknowledgement slots and its
// retry signal. Every kind logs its aborts alike.
struct RequestKind {
    void (PumpValueBase::*timeout)(uint8_t);
    void (PumpValueBase::*acknowledged)(uint8_t);
    void (PumpValueBase::*retry)();
};

} // namespace

Q_DECLARE_METATYPE(RequestKind)

class PumpValueBaseTest : public QObject {
    Q_OBJECT

private slots:
    void timeouts_retryTwiceAbortOnThirdThenCountAgain_data();
    void timeouts_retryTwiceAbortOnThirdThenCountAgain();
    void setAck_setSuccessSeesTheCountBeforeItIsCleared();
    void setDefaultAck_clearsTheCountBeforeSuccess();
    void subscribe_abortStaysUntilTheNextAcknowledgement();
    void subscribe_usesDefaultsOnRetryAfterExplicitParameters();
    void requestOnlyValue_ignoresSubscriptions();
    void log_namesTheValueItsSourceAndTheStep();
};

void PumpValueBaseTest::timeouts_retryTwiceAbortOnThirdThenCountAgain_data() {
    QTest::addColumn<RequestKind>("kind");
    QTest::newRow("get") << RequestKind{&PumpValueBase::onGetValueTimeout,
                                        &PumpValueBase::onAckGetValue,
                                        &PumpValueBase::retryGetValue};
    QTest::newRow("set") << RequestKind{&PumpValueBase::onSetValueTimeout,
                                        &PumpValueBase::onAckSetValue,
                                        &PumpValueBase::retrySetValue};
    QTest::newRow("set-default") << RequestKind{&PumpValueBase::onSetDefaultValueTimeout,
                                                &PumpValueBase::onAckSetDefaultValue,
                                                &PumpValueBase::retrySetDefaultValue};
}

void PumpValueBaseTest::timeouts_retryTwiceAbortOnThirdThenCountAgain() {
    QFETCH(RequestKind, kind);
    testsupport::LogCapture log;
    PumpValueBase value(kAttribute, QStringLiteral("ApplicationSpeed"));
    QSignalSpy retries(&value, kind.retry);
    const auto timeOut = [&](uint8_t attribute) { (value.*kind.timeout)(attribute); };
    const auto aborts = [&log] { return log.count(QStringLiteral("no response, aborting")); };

    // Another attribute's time-outs and acknowledgements are not counted.
    timeOut(kOtherAttribute);
    QCOMPARE(retries.count(), 0);
    timeOut(kAttribute);
    (value.*kind.acknowledged)(kOtherAttribute);
    timeOut(kAttribute);
    QCOMPARE(retries.count(), 2);
    QCOMPARE(aborts(), 0);
    timeOut(kAttribute);
    QCOMPARE(retries.count(), 2);
    QCOMPARE(aborts(), 1);

    // The abort cleared the count: the next time-out is a first one again.
    timeOut(kAttribute);
    QCOMPARE(retries.count(), 3);
    // An acknowledgement in between does too.
    timeOut(kAttribute);
    (value.*kind.acknowledged)(kAttribute);
    timeOut(kAttribute);
    timeOut(kAttribute);
    QCOMPARE(retries.count(), 6);
    QCOMPARE(aborts(), 1);
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

void PumpValueBaseTest::setDefaultAck_clearsTheCountBeforeSuccess() {
    PumpValueBase value(kAttribute, QStringLiteral("EnableLineSpeed"));
    QSignalSpy retries(&value, &PumpValueBase::retrySetDefaultValue);
    QSignalSpy results(&value, &PumpValueBase::setDefaultValueSuccess);
    value.onSetDefaultValueTimeout(kAttribute);
    value.onSetDefaultValueTimeout(kAttribute);
    // A time-out seen by a receiver of the success is a first one and retries.
    connect(&value, &PumpValueBase::setDefaultValueSuccess, &value, [&value](bool success) {
        if (success) {
            value.onSetDefaultValueTimeout(kAttribute);
        }
    });
    value.onAckSetDefaultValue(kAttribute);
    QCOMPARE(retries.count(), 3);
    QCOMPARE(results.count(), 1);
    QCOMPARE(results.at(0).at(0).toBool(), true);

    // Its abort is its failure.
    value.onSetDefaultValueTimeout(kAttribute);
    value.onSetDefaultValueTimeout(kAttribute);
    QCOMPARE(results.count(), 2);
    QCOMPARE(results.at(1).at(0).toBool(), false);
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

// Without a proxy to subscribe through, the subscription calls do nothing.
void PumpValueBaseTest::requestOnlyValue_ignoresSubscriptions() {
    PumpValueBase value(kAttribute, QStringLiteral("Acceleration"));
    value.subscribe();
    value.subscribeWithParams(100, true);
    value.unsubscribe();
    value.onSubscribeTimeout(kAttribute);
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
