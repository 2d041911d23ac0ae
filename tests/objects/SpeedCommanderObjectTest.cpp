// The speed commander proxy.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::QSpeedRangeProfile;
using communication::objects::SpeedCommanderObject;
using testsupport::hex;
using testsupport::le;
using testsupport::LinkHarness;

namespace {

const QSpeedRangeProfile kProfile{100, 3000, 4000, 20000, 50};
const QByteArray kProfileBytes = hex("64000000 B80B0000 A00F0000 204E0000 32000000");

} // namespace

class SpeedCommanderObjectTest : public QObject {
    Q_OBJECT

private slots:
    void getsAndSetDefaults_carryThePreviousPayload() {
        LinkHarness h;
        SpeedCommanderObject commander(h.protocol());
        QVERIFY(commander.SetEnableLineSpeed(500));
        QCOMPARE(h.lastBytes(), hex("00 00 05 01 09 02 0400 F4010000"));
        QVERIFY(commander.Get(1));
        QCOMPARE(h.lastBytes(), hex("01 00 05 01 01 00 0400 F4010000"));
        QVERIFY(commander.SetDefault(12));
        QCOMPARE(h.lastBytes(), hex("02 00 05 01 0C 04 0400 F4010000"));
    }

    void setters_acceptTheirAttributesOnly() {
        LinkHarness h;
        SpeedCommanderObject commander(h.protocol());
        QVERIFY(!commander.SetDefault(2));
        QVERIFY(!commander.WriteProfileToRequest(9, kProfile));
        QCOMPARE(h.sentCount(), 0);
        QVERIFY(commander.WriteProfileToRequest(5, kProfile));
        QCOMPARE(h.lastBytes(), hex("00 00 05 01 05 02 1400") + kProfileBytes);
        QVERIFY(commander.SetHysteresis(6, 7));
        QCOMPARE(h.lastBytes(), hex("01 00 05 01 06 02 0400 07000000"));
        QVERIFY(commander.Subscribe(15, 1000, true));
        QCOMPARE(h.lastBytes(), hex("02 00 05 01 0F 06 0300 E803 01"));
        QVERIFY(!commander.Subscribe(16, 1000, true));
        QVERIFY(!commander.Unsubscribe(16));
        QCOMPARE(h.sentCount(), 3);
    }

    void profiles_andEnableLineAnswers_becomeSignals() {
        testsupport::LogCapture log;
        LinkHarness h;
        SpeedCommanderObject commander(h.protocol());
        h.add(commander);
        QSignalSpy current(&commander, &SpeedCommanderObject::getCurrentSpeedRangeResponse);
        QSignalSpy voltageLimits(&commander,
                                 &SpeedCommanderObject::getVoltageSpeedRangeLimitsResponse);
        QSignalSpy frequency(&commander, &SpeedCommanderObject::getFrequencySpeedRangeResponse);
        QSignalSpy enableSpeed(&commander, &SpeedCommanderObject::getEnableLineSpeedResponse);
        QSignalSpy enableLimits(&commander,
                                &SpeedCommanderObject::getEnableLineSpeedLimitsResponse);

        commander.Get(1);
        h.ack(kProfileBytes);
        QCOMPARE(current.takeFirst().at(0).value<QSpeedRangeProfile>(), kProfile);
        commander.Get(6);
        h.ack(kProfileBytes);
        QCOMPARE(voltageLimits.size(), 1);
        commander.Get(12);
        h.ack(kProfileBytes.left(16));
        QCOMPARE(frequency.size(), 0);
        QVERIFY(log.contains(QStringLiteral("ReadProfileFromMessage")));

        commander.Get(9);
        h.ack(le<uint32_t>(1200));
        QCOMPARE(enableSpeed.takeFirst().at(0).value<uint32_t>(), 1200u);
        commander.Get(10);
        h.ack(le<uint32_t>(10) + le<uint32_t>(6000));
        QCOMPARE(enableLimits.takeFirst(), (QList<QVariant>{QVariant::fromValue<uint32_t>(10),
                                                            QVariant::fromValue<uint32_t>(6000)}));
        commander.Get(10);
        h.ack(le<uint32_t>(10));
        QCOMPARE(enableLimits.size(), 0);
        QVERIFY(log.contains(QStringLiteral("GetHandler - Protocol message data read failure")));
    }

    void refusedAndAcceptedSets_giveTheSameAcknowledgement() {
        LinkHarness h;
        SpeedCommanderObject commander(h.protocol());
        h.add(commander);
        QSignalSpy setAck(&commander, &SpeedCommanderObject::setAck);
        QSignalSpy defaultAck(&commander, &SpeedCommanderObject::setDefaultAck);
        QSignalSpy getAck(&commander, &SpeedCommanderObject::getAck);
        QSignalSpy defaultTimeout(&commander, &SpeedCommanderObject::setDefaultTimeout);

        commander.SetEnableLineSpeed(1);
        h.ack();
        commander.SetEnableLineSpeed(1);
        h.refuse();
        QCOMPARE(setAck.size(), 2);
        commander.SetDefault(1);
        h.refuse();
        QCOMPARE(defaultAck.takeFirst().at(0).value<uint8_t>(), 1);
        commander.Get(13);
        h.refuse();
        QCOMPARE(getAck.takeFirst().at(0).value<uint8_t>(), 13);
        commander.SetDefault(9);
        h.timeOut();
        QCOMPARE(defaultTimeout.takeFirst().at(0).value<uint8_t>(), 9);
    }

    void updates_targetSpeedsAndEnableLine() {
        testsupport::LogCapture log;
        LinkHarness h;
        SpeedCommanderObject commander(h.protocol());
        h.add(commander);
        QSignalSpy current(&commander, &SpeedCommanderObject::updateCurrentTargetSpeed);
        QSignalSpy voltage(&commander, &SpeedCommanderObject::updateVoltageTargetSpeed);
        QSignalSpy frequency(&commander, &SpeedCommanderObject::updateFrequencyTargetSpeed);
        QSignalSpy asserted(&commander, &SpeedCommanderObject::updateEnableLineAsserted);

        h.pumpRequest(5, 1, 3, 8, le<uint32_t>(30));
        h.pumpRequest(5, 1, 7, 8, le<uint32_t>(70));
        h.pumpRequest(5, 1, 14, 8, le<uint32_t>(140));
        h.pumpRequest(5, 1, 11, 8, hex("01"));
        QCOMPARE(h.sentBytes(), QList<QByteArray>(4, hex("40 01 00")));
        QCOMPARE(current.takeFirst().at(0).value<uint32_t>(), 30u);
        QCOMPARE(voltage.takeFirst().at(0).value<uint32_t>(), 70u);
        QCOMPARE(frequency.takeFirst().at(0).value<uint32_t>(), 140u);
        QCOMPARE(asserted.takeFirst().at(0).toBool(), true);

        h.pumpRequest(5, 1, 7, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QVERIFY(log.contains(QStringLiteral("UpdateTargetSpeedHandler")));
        h.pumpRequest(5, 1, 11, 8);
        QVERIFY(log.contains(QStringLiteral("UpdateEnableLineAssertedHandler")));
        h.pumpRequest(5, 1, 1, 8, kProfileBytes);
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(5, 1, 3, 0);
        QCOMPARE(h.lastBytes(), hex("40 03 05"));
    }
};

OBJECTS_TEST(SpeedCommanderObjectTest)

#include "SpeedCommanderObjectTest.moc"
