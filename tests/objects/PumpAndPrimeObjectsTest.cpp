// The pump and prime proxies: request bytes, answers, refusals, time-outs and the pump's updates.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PrimeObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

using communication::MotorFaultType;
using communication::objects::PrimeObject;
using communication::objects::PumpObject;
using testsupport::hex;
using testsupport::le;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

class PrimeObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        PrimeObject prime(h.protocol());
        h.add(prime);

        QVERIFY(prime.GetPrimeInputState());
        QCOMPARE(h.lastBytes(), hex("00 00 02 02 01 00"));
        QVERIFY(prime.SetPrimeSpeed(1000));
        QCOMPARE(h.lastBytes(), hex("01 00 02 02 03 02 0400 E8030000"));
        QVERIFY(prime.Subscribe(3, 500, true));
        QCOMPARE(h.lastBytes(), hex("02 00 02 02 03 06 0300 F401 01"));
        QVERIFY(prime.Unsubscribe(1));
        QCOMPARE(h.lastBytes(), hex("03 00 02 02 01 07"));
    }

    void subscribe_acceptsAttributesBelowFourOnly() {
        LinkHarness h;
        PrimeObject prime(h.protocol());
        QVERIFY(prime.Subscribe(2, 1000, false)); // nothing published there, accepted all the same
        QVERIFY(!prime.Subscribe(4, 1000, false));
        QVERIFY(!prime.Unsubscribe(4));
        QCOMPARE(h.sentCount(), 1);
    }

    void answers_becomeSignals_andRefusedSetsStaySilent() {
        LinkHarness h;
        PrimeObject prime(h.protocol());
        h.add(prime);
        QSignalSpy speed(&prime, &PrimeObject::getPrimeSpeedResponse);
        QSignalSpy state(&prime, &PrimeObject::getPrimeInputStateResponse);
        QSignalSpy setAck(&prime, &PrimeObject::ackSetResult);
        QSignalSpy getAck(&prime, &PrimeObject::ackGetResult);
        QSignalSpy subscribed(&prime, &PrimeObject::ackSubscribeResult);

        prime.GetPrimeSpeed();
        QCOMPARE(h.ack(le<uint32_t>(2500)), Status::Success);
        QCOMPARE(speed.takeFirst().at(0).value<uint32_t>(), 2500u);
        prime.GetPrimeInputState();
        h.ack(hex("01"));
        QCOMPARE(state.takeFirst().at(0).value<uint8_t>(), 1);

        prime.SetPrimeSpeed(10);
        h.ack();
        QCOMPARE(setAck.takeFirst().at(0).value<uint8_t>(), 3);
        prime.SetPrimeSpeed(10);
        h.refuse();
        QCOMPARE(setAck.size(), 0);

        prime.GetPrimeSpeed();
        h.refuse(Status::InvalidAttribute);
        QCOMPARE(getAck.takeFirst().at(0).value<uint8_t>(), 3);
        QCOMPARE(speed.size(), 0);

        prime.Subscribe(1, 100, true);
        h.ack();
        prime.Subscribe(3, 100, true);
        h.refuse(Status::MaxSubscriptionsExceeded);
        QCOMPARE(subscribed.size(), 2);
        QCOMPARE(subscribed.at(0).at(0).toBool(), true);
        QCOMPARE(subscribed.at(1).at(0).toBool(), false);
        QCOMPARE(subscribed.at(1).at(1).value<uint8_t>(), 3);
    }

    void shortAnswer_isLoggedAndEmitsNothing() {
        testsupport::LogCapture log;
        LinkHarness h;
        PrimeObject prime(h.protocol());
        h.add(prime);
        QSignalSpy speed(&prime, &PrimeObject::getPrimeSpeedResponse);

        prime.GetPrimeSpeed();
        h.ack(hex("E803"));
        QCOMPARE(speed.size(), 0);
        QVERIFY(log.contains(QStringLiteral("ProtocolObjects/PrimeObject:")));
        QVERIFY(log.contains(
            QStringLiteral("GetPrimeSpeedResponseHandler - Protocol message data read failure")));
    }

    void timeouts_followTheOperation() {
        LinkHarness h;
        PrimeObject prime(h.protocol());
        h.add(prime);
        QSignalSpy getTimeout(&prime, &PrimeObject::getTimeout);
        QSignalSpy setTimeout(&prime, &PrimeObject::setTimeout);
        QSignalSpy subTimeout(&prime, &PrimeObject::subscribeTimeout);
        QSignalSpy unsubTimeout(&prime, &PrimeObject::unsubscribeTimeout);

        prime.GetPrimeInputState();
        prime.SetPrimeSpeed(1);
        prime.Subscribe(3, 100, false);
        prime.Unsubscribe(1);
        h.timeOut();
        QCOMPARE(getTimeout.takeFirst().at(0).value<uint8_t>(), 1);
        QCOMPARE(setTimeout.takeFirst().at(0).value<uint8_t>(), 3);
        QCOMPARE(subTimeout.takeFirst().at(0).value<uint8_t>(), 3);
        QCOMPARE(unsubTimeout.takeFirst().at(0).value<uint8_t>(), 1);
        QCOMPARE(h.outstanding(), 0u);
    }

    void updates_areAnsweredAndRaised() {
        testsupport::LogCapture log;
        LinkHarness h;
        PrimeObject prime(h.protocol());
        h.add(prime);
        QSignalSpy speed(&prime, &PrimeObject::updatePrimeSpeed);
        QSignalSpy state(&prime, &PrimeObject::updatePrimeInputState);

        QCOMPARE(h.pumpRequest(2, 2, 3, 8, le<uint32_t>(1234)), Status::Success);
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        QCOMPARE(speed.takeFirst().at(0).value<uint32_t>(), 1234u);
        h.pumpRequest(2, 2, 1, 8, hex("00"));
        QCOMPARE(state.takeFirst().at(0).value<uint8_t>(), 0);

        h.pumpRequest(2, 2, 2, 8, hex("00"));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(2, 2, 3, 8, hex("0102"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QVERIFY(log.contains(QStringLiteral("UpdateHandler - Protocol message data read failure")));
        h.pumpRequest(2, 2, 3, 0);
        QCOMPARE(h.lastBytes(), hex("40 03 05"));
        QCOMPARE(speed.size(), 0);
    }
};

class PumpObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        PumpObject pump(h.protocol());
        h.add(pump);

        pump.RequestAckFaults();
        QCOMPARE(h.lastBytes(), hex("00 00 02 01 00 09"));
        pump.RequestSetMotorFault(5);
        QCOMPARE(h.lastBytes(), hex("01 00 02 01 01 02 0100 05"));
        pump.RequestSetControlInput(3);
        QCOMPARE(h.lastBytes(), hex("02 00 02 01 02 02 0100 03"));
        pump.RequestSetApplicationSpeed(uint32_t(-1500));
        QCOMPARE(h.lastBytes(), hex("03 00 02 01 03 02 0400 24FAFFFF"));
        pump.RequestSetApplicationSpeedEnable(1);
        QCOMPARE(h.lastBytes(), hex("04 00 02 01 04 02 0100 01"));
        pump.RequestSetApplicationOverrideActive(0);
        QCOMPARE(h.lastBytes(), hex("05 00 02 01 05 02 0100 00"));
        pump.RequestGetControlInput();
        pump.RequestGetApplicationSpeed();
        pump.RequestGetApplicationSpeedEnable();
        pump.RequestGetApplicationOverrideActive();
        pump.RequestGetMaxApplicationSpeed();
        const QList<QByteArray> gets = h.sentBytes().mid(6);
        QCOMPARE(gets, (QList<QByteArray>{hex("06 00 02 01 02 00"), hex("07 00 02 01 03 00"),
                                          hex("08 00 02 01 04 00"), hex("09 00 02 01 05 00"),
                                          hex("0A 00 02 01 06 00")}));
    }

    void subscribe_acceptsOnlyPublishedAttributes() {
        LinkHarness h;
        PumpObject pump(h.protocol());
        for (const int attribute : {0, 2, 4, 10}) {
            QVERIFY(!pump.Subscribe(uint8_t(attribute), 1000, true));
            QVERIFY(!pump.Unsubscribe(uint8_t(attribute)));
        }
        QCOMPARE(h.sentCount(), 0);
        for (const int attribute : {1, 3, 5, 6, 7, 8, 9}) {
            QVERIFY(pump.Subscribe(uint8_t(attribute), 1000, true));
        }
        QCOMPARE(h.sentCount(), 7);
    }

    void getAnswers_becomeSignals_andBadControlInputIsRejected() {
        testsupport::LogCapture log;
        LinkHarness h;
        PumpObject pump(h.protocol());
        h.add(pump);
        QSignalSpy control(&pump, &PumpObject::getControlInputResponse);
        QSignalSpy speed(&pump, &PumpObject::getApplicationSpeedResponse);
        QSignalSpy enable(&pump, &PumpObject::getApplicationSpeedEnableResponse);
        QSignalSpy override(&pump, &PumpObject::getApplicationOverrideActiveResponse);
        QSignalSpy maxSpeed(&pump, &PumpObject::getMaxApplicationSpeedResponse);

        pump.RequestGetControlInput();
        h.ack(hex("06"));
        QCOMPARE(control.takeFirst().at(0).value<halyard::pump::ControlInput>(),
                 halyard::pump::ControlInput::Network);
        pump.RequestGetControlInput();
        h.ack(hex("07"));
        QCOMPARE(control.size(), 0);
        QVERIFY(log.contains(
            QStringLiteral("GetControlInputResponseHandler - Protocol message data read failure")));

        pump.RequestGetApplicationSpeed();
        h.ack(le<int32_t>(-1500));
        QCOMPARE(speed.takeFirst().at(0).value<int32_t>(), -1500);
        pump.RequestGetApplicationSpeedEnable();
        h.ack(hex("01"));
        QCOMPARE(enable.takeFirst().at(0).toBool(), true);
        pump.RequestGetApplicationOverrideActive();
        h.ack(hex("00"));
        QCOMPARE(override.takeFirst().at(0).toBool(), false);
        pump.RequestGetMaxApplicationSpeed();
        h.ack(le<uint32_t>(6000));
        QCOMPARE(maxSpeed.takeFirst().at(0).value<uint32_t>(), 6000u);
        pump.RequestGetMaxApplicationSpeed();
        h.ack(hex("7017"));
        QCOMPARE(maxSpeed.size(), 0);
        QVERIFY(log.contains(QStringLiteral("GetMaxApplicationSpeedResponseHandler")));
    }

    void setAnswers_refusedLikeAccepted_andFaultTypeCarriedBack() {
        testsupport::LogCapture log;
        LinkHarness h;
        PumpObject pump(h.protocol());
        h.add(pump);
        QSignalSpy setAck(&pump, &PumpObject::ackSetResult);
        QSignalSpy faultAck(&pump, &PumpObject::ackSetFaultResult);
        QSignalSpy getAck(&pump, &PumpObject::ackGetResult);

        pump.RequestSetApplicationSpeed(100);
        h.ack();
        pump.RequestSetApplicationSpeed(100);
        h.refuse(Status::InvalidMessageData);
        QCOMPARE(setAck.size(), 2);
        QCOMPARE(setAck.at(0), setAck.at(1));

        pump.RequestSetMotorFault(5);
        h.ack(hex("05"));
        QCOMPARE(faultAck.takeFirst().at(0).value<MotorFaultType>(), MotorFaultType::Stall);
        pump.RequestSetMotorFault(5);
        h.ack();
        QCOMPARE(faultAck.size(), 0);
        QVERIFY(log.contains(QStringLiteral("SetFaultResponseHandler")));

        pump.RequestGetControlInput();
        h.refuse();
        QCOMPARE(getAck.takeFirst().at(0).value<uint8_t>(), 2);

        // The fault acknowledgement's answer is not consumed.
        pump.RequestAckFaults();
        QCOMPARE(h.ack(), Status::Failed);
        QCOMPARE(setAck.size(), 2);
    }

    void timeouts_followTheOperation() {
        LinkHarness h;
        PumpObject pump(h.protocol());
        h.add(pump);
        QSignalSpy getTimeout(&pump, &PumpObject::getTimeout);
        QSignalSpy setTimeout(&pump, &PumpObject::setTimeout);
        QSignalSpy unsubTimeout(&pump, &PumpObject::unsubscribeTimeout);
        pump.RequestGetApplicationSpeed();
        pump.RequestSetControlInput(1);
        pump.Unsubscribe(7);
        h.timeOut();
        QCOMPARE(getTimeout.takeFirst().at(0).value<uint8_t>(), 3);
        QCOMPARE(setTimeout.takeFirst().at(0).value<uint8_t>(), 2);
        QCOMPARE(unsubTimeout.takeFirst().at(0).value<uint8_t>(), 7);
    }

    void updates_areRaisedAndAnswered() {
        LinkHarness h;
        PumpObject pump(h.protocol());
        h.add(pump);
        QSignalSpy faults(&pump, &PumpObject::updateFaults);
        QSignalSpy speed(&pump, &PumpObject::updateApplicationSpeed);
        QSignalSpy override(&pump, &PumpObject::updateApplicationOverrideActive);
        QSignalSpy maxSpeed(&pump, &PumpObject::updateMaxApplicationSpeed);
        QSignalSpy cover(&pump, &PumpObject::updateCoverStatus);
        QSignalSpy direction(&pump, &PumpObject::updateDirection);
        QSignalSpy power(&pump, &PumpObject::updatePowerUsage);

        h.pumpRequest(2, 1, 1, 8, le<uint32_t>(0x12));
        h.pumpRequest(2, 1, 3, 8, le<uint32_t>(1500));
        h.pumpRequest(2, 1, 5, 8, hex("01"));
        h.pumpRequest(2, 1, 6, 8, le<uint32_t>(6000));
        h.pumpRequest(2, 1, 7, 8, hex("01"));
        h.pumpRequest(2, 1, 8, 8, hex("01"));
        h.pumpRequest(2, 1, 9, 8, le<float>(12.5F));
        for (const QByteArray& reply : h.sentBytes()) {
            QCOMPARE(reply, hex("40 01 00"));
        }
        QCOMPARE(h.sentCount(), 7);
        QCOMPARE(faults.takeFirst().at(0).value<uint32_t>(), 0x12u);
        QCOMPARE(speed.takeFirst().at(0).value<uint32_t>(), 1500u);
        QCOMPARE(override.takeFirst().at(0).toBool(), true);
        QCOMPARE(maxSpeed.takeFirst().at(0).value<uint32_t>(), 6000u);
        QCOMPARE(cover.takeFirst().at(0).toBool(), true);
        QCOMPARE(direction.takeFirst().at(0).value<halyard::Direction>(),
                 halyard::Direction::Reverse);
        QCOMPARE(power.takeFirst().at(0).toFloat(), 12.5F);
    }

    void badUpdates_areRefused_someWithALogLine() {
        testsupport::LogCapture log;
        LinkHarness h;
        PumpObject pump(h.protocol());
        h.add(pump);
        QSignalSpy cover(&pump, &PumpObject::updateCoverStatus);

        h.pumpRequest(2, 1, 7, 8); // empty cover status: logged
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QCOMPARE(log.count(QStringLiteral("UpdateHandler - Protocol message data read failure")),
                 1);
        h.pumpRequest(2, 1, 3, 8); // empty application speed: answered without a log line
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QCOMPARE(log.count(QStringLiteral("Protocol message data read failure")), 1);
        QCOMPARE(cover.size(), 0);

        h.pumpRequest(2, 1, 2, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(2, 1, 10, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(2, 1, 7, 2, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 05"));
    }
};

OBJECTS_TEST(PrimeObjectTest)
OBJECTS_TEST(PumpObjectTest)

#include "PumpAndPrimeObjectsTest.moc"
