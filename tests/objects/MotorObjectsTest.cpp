// The motor and stepper-motor proxies.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorStepperObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::CelerationLimits;
using communication::objects::MotorObject;
using communication::objects::MotorStepperObject;
using halyard::encoder::EncoderData;
using testsupport::hex;
using testsupport::le;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

class MotorObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        MotorObject motor(h.protocol());
        motor.GetEncoderData();
        motor.GetAcceleration();
        motor.GetDeceleration();
        motor.GetCelerationLimits();
        motor.SetAcceleration(100.0F);
        motor.SetDeceleration(-2.0F);
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 03 01 04 00"), hex("01 00 03 01 05 00"),
                                    hex("02 00 03 01 06 00"), hex("03 00 03 01 07 00"),
                                    hex("04 00 03 01 05 02 0400 0000C842"),
                                    hex("05 00 03 01 06 02 0400 000000C0")}));
    }

    void subscribe_acceptsSpeedAlignedAndEnergisedOnly() {
        LinkHarness h;
        MotorObject motor(h.protocol());
        QVERIFY(!motor.Subscribe(4, 100, false));
        QVERIFY(!motor.Unsubscribe(9));
        QVERIFY(motor.Subscribe(3, 100, false));
        QVERIFY(motor.Subscribe(8, 100, true));
        QVERIFY(motor.Unsubscribe(10));
        QCOMPARE(h.sentBytes().at(0), hex("00 00 03 01 03 06 0300 6400 00"));
        QCOMPARE(h.sentCount(), 3);
    }

    void encoderData_mustBeExactlyTwelveBytes() {
        testsupport::LogCapture log;
        LinkHarness h;
        MotorObject motor(h.protocol());
        h.add(motor);
        QSignalSpy encoder(&motor, &MotorObject::getEncoderDataResponse);

        motor.GetEncoderData();
        h.ack(hex("01020304 0A000000 11 22 33 44"));
        QCOMPARE(encoder.size(), 1);
        const auto data = encoder.takeFirst().at(0).value<EncoderData>();
        QCOMPARE(data.count, 0x04030201u);
        QCOMPARE(data.revolutions, 10u);
        QCOMPARE(data.status, 0x11);
        QCOMPARE(data.fieldStrength, 0x44);

        motor.GetEncoderData();
        h.ack(hex("01020304 0A000000 11 22 33 44 55"));
        motor.GetEncoderData();
        h.ack(hex("01020304 0A000000 11 22 33"));
        QCOMPARE(encoder.size(), 0);
        QCOMPARE(log.count(QStringLiteral(
                     "GetEncoderDataResponseHandler - Protocol message data read failure")),
                 2);
    }

    void getAnswers_becomeSignals() {
        LinkHarness h;
        MotorObject motor(h.protocol());
        h.add(motor);
        QSignalSpy acceleration(&motor, &MotorObject::getAccelerationResponse);
        QSignalSpy deceleration(&motor, &MotorObject::getDecelerationResponse);
        QSignalSpy limits(&motor, &MotorObject::getCelerationLimitsResponse);

        motor.GetAcceleration();
        h.ack(le<float>(250.0F));
        motor.GetDeceleration();
        h.ack(le<float>(125.5F));
        motor.GetCelerationLimits();
        h.ack(le<float>(1.0F) + le<float>(5000.0F));
        QCOMPARE(acceleration.takeFirst().at(0).toFloat(), 250.0F);
        QCOMPARE(deceleration.takeFirst().at(0).toFloat(), 125.5F);
        const auto range = limits.takeFirst().at(0).value<CelerationLimits>();
        QCOMPARE(range.minimumRpmPerSec, 1.0F);
        QCOMPARE(range.maximumRpmPerSec, 5000.0F);

        motor.GetCelerationLimits();
        h.ack(le<float>(1.0F));
        QCOMPARE(limits.size(), 0);
    }

    void refusedSet_isAcknowledgedLikeAnAcceptedOne() {
        LinkHarness h;
        MotorObject motor(h.protocol());
        h.add(motor);
        QSignalSpy setAck(&motor, &MotorObject::ackSetResult);
        QSignalSpy getAck(&motor, &MotorObject::ackGetResult);
        QSignalSpy subscribed(&motor, &MotorObject::ackSubscribeResult);
        motor.SetAcceleration(1.0F);
        h.ack();
        motor.SetDeceleration(1.0F);
        h.refuse();
        QCOMPARE(setAck.size(), 2);
        QCOMPARE(setAck.at(1).at(0).value<uint8_t>(), 6);
        motor.GetAcceleration();
        h.refuse();
        QCOMPARE(getAck.takeFirst().at(0).value<uint8_t>(), 5);
        motor.Subscribe(3, 100, false);
        h.refuse(Status::MaxSubscriptionsExceeded);
        QCOMPARE(subscribed.takeFirst().at(0).toBool(), false);
    }

    void updates_areRaisedAndAnswered_andOthersRefused() {
        testsupport::LogCapture log;
        LinkHarness h;
        MotorObject motor(h.protocol());
        h.add(motor);
        QSignalSpy speed(&motor, &MotorObject::updateActualSpeed);
        QSignalSpy aligned(&motor, &MotorObject::updateIsAligned);
        QSignalSpy energised(&motor, &MotorObject::updateIsEnergized);
        QSignalSpy timeout(&motor, &MotorObject::subscribeTimeout);

        h.pumpRequest(3, 1, 3, 8, le<int32_t>(-300));
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        QCOMPARE(speed.takeFirst().at(0).value<int32_t>(), -300);
        h.pumpRequest(3, 1, 8, 8, hex("01"));
        h.pumpRequest(3, 1, 10, 8, hex("00"));
        QCOMPARE(aligned.takeFirst().at(0).toBool(), true);
        QCOMPARE(energised.takeFirst().at(0).toBool(), false);

        h.pumpRequest(3, 1, 3, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QVERIFY(log.contains(QStringLiteral("ActualSpeedUpdateHandler")));
        h.pumpRequest(3, 1, 4, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(3, 1, 3, 0);
        QCOMPARE(h.lastBytes(), hex("40 03 05"));

        motor.Subscribe(10, 100, true);
        h.timeOut();
        QCOMPARE(timeout.takeFirst().at(0).value<uint8_t>(), 10);
    }
};

class MotorStepperObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        MotorStepperObject stepper(h.protocol());
        stepper.GetTorqueIndex();
        stepper.GetTorqueTargets();
        stepper.SetTorqueIndex(3);
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 03 02 05 00"), hex("01 00 03 02 06 00"),
                                    hex("02 00 03 02 05 02 0100 03")}));
    }

    void torqueTargets_takeEveryWholeFloat() {
        testsupport::LogCapture log;
        LinkHarness h;
        MotorStepperObject stepper(h.protocol());
        h.add(stepper);
        QSignalSpy targets(&stepper, &MotorStepperObject::getTorqueTargetsResponse);

        stepper.GetTorqueTargets();
        h.ack(le<float>(0.5F) + le<float>(1.25F) + hex("FFFF")); // 10 bytes: two targets
        QCOMPARE(targets.takeFirst().at(0).value<QList<float>>(), (QList<float>{0.5F, 1.25F}));

        stepper.GetTorqueTargets();
        h.ack();
        QCOMPARE(targets.size(), 0);
        QVERIFY(log.contains(QStringLiteral("GetTorqueTargetsResponseHandler")));
    }

    void answers_refusalsAndTimeouts() {
        LinkHarness h;
        MotorStepperObject stepper(h.protocol());
        h.add(stepper);
        QSignalSpy index(&stepper, &MotorStepperObject::getTorqueIndexResponse);
        QSignalSpy setAck(&stepper, &MotorStepperObject::ackSetResult);
        QSignalSpy setNak(&stepper, &MotorStepperObject::nakSetResult);
        QSignalSpy getNak(&stepper, &MotorStepperObject::ackGetResult);
        QSignalSpy getTimeout(&stepper, &MotorStepperObject::getTimeout);
        QSignalSpy setTimeout(&stepper, &MotorStepperObject::setTimeout);

        stepper.GetTorqueIndex();
        h.ack(hex("04"));
        QCOMPARE(index.takeFirst().at(0).value<uint8_t>(), 4);
        stepper.SetTorqueIndex(2);
        h.ack();
        stepper.SetTorqueIndex(9);
        h.refuse(Status::InvalidMessageData);
        QCOMPARE(setAck.takeFirst().at(0).value<uint8_t>(), 5);
        QCOMPARE(setNak.takeFirst().at(0).value<uint8_t>(), 5);
        stepper.GetTorqueTargets();
        h.refuse();
        QCOMPARE(getNak.takeFirst().at(0).value<uint8_t>(), 6);

        stepper.GetTorqueIndex();
        stepper.SetTorqueIndex(1);
        h.timeOut();
        QCOMPARE(getTimeout.size(), 1);
        QCOMPARE(setTimeout.size(), 1);
    }
};

OBJECTS_TEST(MotorObjectTest)
OBJECTS_TEST(MotorStepperObjectTest)

#include "MotorObjectsTest.moc"
