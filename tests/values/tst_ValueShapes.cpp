#include "ValuesLink.h"
#include "tests/support/LogCapture.h"

#include "QtApps/Common/Model/PumpValues/Motor/PumpActualSpeed.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpCelerationLimits.h"
#include "QtApps/Common/Model/PumpValues/PumpApplicationSpeed.h"
#include "QtApps/Common/Model/PumpValues/WireConversions.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>

using communication::PumpApplicationSpeed;
using communication::PumpValueBase;
using communication::objects::MotorObject;
using communication::objects::PumpObject;
using Operation = ValuesLink::Operation;

// The shapes of value on the real proxies and message layer: what goes out on the link, byte
// for byte, and what the value reports.
class ValueShapesTest : public QObject {
    Q_OBJECT

private slots:
    void settable_acknowledgedSetIsReadBackOnce();
    void settable_unansweredSetIsSentThreeTimesThenAborted();
    void settable_refusedSendIsDroppedWithoutRetry();
    void streaming_updatesAndAnswersReachTheSameSignal();
    void readOnlyStream_subscribesWithItsDefaultsAndForwardsUpdates();
    void getter_readsOnRequestAndGivesUpAfterThreeSends();
    void wireConversions_keepTheSignAndNeverWrap();
};

void ValueShapesTest::settable_acknowledgedSetIsReadBackOnce() {
    ValuesLink link;
    PumpApplicationSpeed speed(link.container());
    QSignalSpy values(&speed, &PumpApplicationSpeed::getApplicationSpeedResponse);
    QSignalSpy successes(&speed, &PumpValueBase::setSuccess);

    speed.setApplicationSpeed(-1234);
    QCOMPARE(link.sent().size(), 1u);
    const auto set = link.lastSent();
    QCOMPARE(link.countSent(2, 3, Operation::Set), 1u);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(set.payload.data()), set.payloadLength),
             QByteArray::fromHex("2EFBFFFF"));

    // The read-back's time-outs are retried like any get's.
    link.acknowledge(set);
    QCOMPARE(successes.count(), 1);
    link.timeOut();
    link.timeOut();
    QCOMPARE(link.countSent(2, 3, Operation::Get), 3u);
    link.acknowledge(link.lastSent(), {0x2E, 0xFB, 0xFF, 0xFF});
    QCOMPARE(values.count(), 1);
    QCOMPARE(values.at(0).at(0).value<int32_t>(), -1234);
    QCOMPARE(link.sent().size(), 4u);
}

void ValueShapesTest::settable_unansweredSetIsSentThreeTimesThenAborted() {
    ValuesLink link;
    PumpApplicationSpeed speed(link.container());
    QSignalSpy aborts(&speed, &PumpValueBase::setValueAborted);

    speed.setApplicationSpeed(500);
    link.timeOut();
    link.timeOut();
    QCOMPARE(aborts.count(), 0);
    link.timeOut();
    QCOMPARE(aborts.count(), 1);
    link.timeOut();

    QCOMPARE(link.sent().size(), 3u);
    QCOMPARE(link.countSent(2, 3, Operation::Set), 3u);
    for (const auto& sent : link.sent()) {
        QCOMPARE(sent.payload[0], uint8_t{0xF4});
        QCOMPARE(sent.payload[1], uint8_t{0x01});
    }

    // A later set starts with a fresh count: it is acknowledged on its second try.
    speed.setApplicationSpeed(600);
    link.timeOut();
    link.acknowledge(link.lastSent());
    QCOMPARE(link.countSent(2, 3, Operation::Set), 5u);
    QCOMPARE(link.countSent(2, 3, Operation::Get), 1u);
    QCOMPARE(aborts.count(), 1);
}

void ValueShapesTest::settable_refusedSendIsDroppedWithoutRetry() {
    testsupport::LogCapture log;
    ValuesLink link;
    PumpApplicationSpeed speed(link.container());
    QSignalSpy retries(&speed, &PumpValueBase::retrySetValue);
    link.refuseSends(true);
    speed.setApplicationSpeed(10);
    speed.getApplicationSpeed();
    link.refuseSends(false);
    QCOMPARE(link.sent().size(), 0u);
    QCOMPARE(retries.count(), 0);
    // Logged under the value's own source and the operation's name.
    QCOMPARE(log.count(QStringLiteral("QtApps/Common/Model/PumpValues/PumpApplicationSpeed:")), 2);
    QCOMPARE(log.count(QStringLiteral(
                 " setApplicationSpeed - setApplicationSpeed, can't send SetApplicationSpeed")),
             1);
    QCOMPARE(log.count(QStringLiteral(
                 " getApplicationSpeed - getApplicationSpeed, can't send GetApplicationSpeed")),
             1);
}

void ValueShapesTest::streaming_updatesAndAnswersReachTheSameSignal() {
    ValuesLink link;
    PumpApplicationSpeed speed(link.container());
    QSignalSpy values(&speed, &PumpApplicationSpeed::getApplicationSpeedResponse);

    speed.subscribe();
    QCOMPARE(link.lastSent().operation, Operation::Sub);
    QCOMPARE(link.lastSent().payloadLength, uint16_t{3});
    QCOMPARE(link.lastSent().payload[0], uint8_t{0xE8});
    QCOMPARE(link.lastSent().payload[1], uint8_t{0x03});
    QCOMPARE(link.lastSent().payload[2], uint8_t{1});

    link.update(PumpObject::kObjectId, PumpObject::kInstance, 3, {0x10, 0x27, 0, 0});
    speed.getApplicationSpeed();
    link.acknowledge(link.lastSent(), {0x20, 0x4E, 0, 0});
    QCOMPARE(values.count(), 2);
    QCOMPARE(values.at(0).at(0).value<int32_t>(), 10000);
    QCOMPARE(values.at(1).at(0).value<int32_t>(), 20000);
}

void ValueShapesTest::readOnlyStream_subscribesWithItsDefaultsAndForwardsUpdates() {
    ValuesLink link;
    communication::PumpActualSpeed actual(link.container());
    QSignalSpy changes(&actual, &communication::PumpActualSpeed::actualSpeedChanged);

    actual.subscribe();
    QCOMPARE(link.lastSent().object, MotorObject::kObjectId);
    QCOMPARE(link.lastSent().attribute, uint8_t{3});
    QCOMPARE(link.lastSent().payload[0], uint8_t{100});
    QCOMPARE(link.lastSent().payload[2], uint8_t{0});

    link.update(MotorObject::kObjectId, MotorObject::kInstance, 3, {0xFF, 0xFF, 0xFF, 0xFF});
    link.update(MotorObject::kObjectId, MotorObject::kInstance, 8, {1});
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).value<int32_t>(), -1);

    actual.unsubscribe();
    QCOMPARE(link.lastSent().operation, Operation::Unsub);
}

void ValueShapesTest::getter_readsOnRequestAndGivesUpAfterThreeSends() {
    ValuesLink link;
    communication::PumpCelerationLimits limits(link.container());
    QSignalSpy answers(&limits, &communication::PumpCelerationLimits::getLimitsResponse);
    QSignalSpy aborts(&limits, &PumpValueBase::getValueAborted);

    limits.getLimits();
    QCOMPARE(link.lastSent().operation, Operation::Get);
    QCOMPARE(link.lastSent().attribute, uint8_t{7});
    std::vector<uint8_t> payload = testsupport::bytesOf(10.0F);
    const auto maximum = testsupport::bytesOf(2500.0F);
    payload.insert(payload.end(), maximum.begin(), maximum.end());
    link.acknowledge(link.lastSent(), payload);
    QCOMPARE(answers.count(), 1);
    QCOMPARE(answers.at(0).at(0).value<communication::objects::CelerationLimits>().maximumRpmPerSec,
             2500.0F);

    limits.getLimits();
    link.timeOut();
    link.timeOut();
    link.timeOut();
    QCOMPARE(aborts.count(), 1);
    QCOMPARE(link.countSent(3, 7, Operation::Get), 4u);
}

// The named conversions between wire fields and the values' types.
void ValueShapesTest::wireConversions_keepTheSignAndNeverWrap() {
    using namespace communication::wire;
    for (const int32_t speed : {0, 1, -1, -1500, INT32_MAX, INT32_MIN}) {
        QCOMPARE(signedFromWire(signedToWire(speed)), speed);
    }
    QCOMPARE(signedToWire(-1), 0xFFFFFFFFu);
    QCOMPARE(signedFromWire(0x80000000u), INT32_MIN);

    QCOMPARE(clamped<uint32_t>(size_t{123}), 123u);
    QCOMPARE(clamped<uint32_t>(size_t{1} << 40), UINT32_MAX);
    QCOMPARE(clamped<int32_t>(uint32_t{3000000000u}), INT32_MAX);
    QCOMPARE(clamped<uint32_t>(int64_t{-5}), 0u);
    QCOMPARE(clamped<int8_t>(int32_t{-300}), int8_t{INT8_MIN});

    QCOMPARE(truncatedToWire(2.9F), 2u);
    QCOMPARE(truncatedToWire(-0.5F), 0u);
    QCOMPARE(truncatedToWire(std::nanf("")), 0u);
    QCOMPARE(truncatedToWire(5e9F), UINT32_MAX);

    QCOMPARE(flagFromWire(2), true);
    QCOMPARE(flagToWire(true), uint8_t{1});
}

QTEST_GUILESS_MAIN(ValueShapesTest)
#include "tst_ValueShapes.moc"
