// The analog input, calibration and filter proxies.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogCalibrationObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::AnalogCalibrationObject;
using communication::objects::AnalogFilterData;
using communication::objects::AnalogFilterObject;
using communication::objects::AnalogInputObject;
using testsupport::hex;
using testsupport::le;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

class AnalogInputObjectTest : public QObject {
    Q_OBJECT

private slots:
    void subscribe_coversAttributesZeroToSeven() {
        LinkHarness h;
        AnalogInputObject input(h.protocol());
        QVERIFY(input.Subscribe(7, 250, false));
        QCOMPARE(h.lastBytes(), hex("00 00 04 01 07 06 0300 FA00 00"));
        QVERIFY(!input.Subscribe(8, 250, false));
        QVERIFY(!input.Unsubscribe(8));
        QCOMPARE(h.sentCount(), 1);
    }

    void answers_areOnlyAckResult_whateverTheOperation() {
        LinkHarness h;
        AnalogInputObject input(h.protocol());
        h.add(input);
        QSignalSpy ack(&input, &AnalogInputObject::ackResult);
        QSignalSpy subscribed(&input, &AnalogInputObject::ackSubscribeResult);
        QSignalSpy timeout(&input, &AnalogInputObject::unsubscribeTimeout);

        input.Subscribe(2, 100, true);
        h.ack();
        input.Unsubscribe(3);
        h.refuse(Status::NoSubscription);
        QCOMPARE(ack.size(), 2);
        QCOMPARE(ack.at(0), (QList<QVariant>{true, QVariant::fromValue<uint8_t>(2)}));
        QCOMPARE(ack.at(1), (QList<QVariant>{false, QVariant::fromValue<uint8_t>(3)}));
        QCOMPARE(subscribed.size(), 0);

        input.Unsubscribe(4);
        h.timeOut();
        QCOMPARE(timeout.takeFirst().at(0).value<uint8_t>(), 4);
        QCOMPARE(ack.size(), 2);
    }

    void updates_raiseTheirAttributesSignal() {
        LinkHarness h;
        AnalogInputObject input(h.protocol());
        h.add(input);
        QList<QSignalSpy*> spies{new QSignalSpy(&input, &AnalogInputObject::updateInputCurrent),
                                 new QSignalSpy(&input, &AnalogInputObject::updateInputVoltage),
                                 new QSignalSpy(&input, &AnalogInputObject::updateFrequency),
                                 new QSignalSpy(&input, &AnalogInputObject::updateBusVoltage),
                                 new QSignalSpy(&input, &AnalogInputObject::updateTemperature),
                                 new QSignalSpy(&input, &AnalogInputObject::updateAdcCurrent),
                                 new QSignalSpy(&input, &AnalogInputObject::updateAdcVoltage),
                                 new QSignalSpy(&input, &AnalogInputObject::updateAdcBusVoltage)};
        for (int attribute = 0; attribute < 8; ++attribute) {
            h.pumpRequest(4, 1, uint8_t(attribute), 8, le<float>(float(attribute) + 0.5F));
            QCOMPARE(h.lastBytes(), hex("40 01 00"));
        }
        for (int attribute = 0; attribute < 8; ++attribute) {
            QCOMPARE(spies[attribute]->size(), 1);
            QCOMPARE(spies[attribute]->at(0).at(0).toFloat(), float(attribute) + 0.5F);
        }
        qDeleteAll(spies);
    }

    void badUpdates_areRefused() {
        testsupport::LogCapture log;
        LinkHarness h;
        AnalogInputObject input(h.protocol());
        h.add(input);
        QSignalSpy temperature(&input, &AnalogInputObject::updateTemperature);

        h.pumpRequest(4, 1, 8, 8, le<float>(1.0F));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(4, 1, 4, 8, hex("0000"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QVERIFY(log.contains(QStringLiteral("UpdateHandler - Protocol message data read failure")));
        h.pumpRequest(4, 1, 4, 0, le<float>(1.0F));
        QCOMPARE(h.lastBytes(), hex("40 03 05"));
        QCOMPARE(temperature.size(), 0);
    }
};

class AnalogCalibrationObjectTest : public QObject {
    Q_OBJECT

private slots:
    void setCalibration_logsAndSendsSlopeThenOffset() {
        testsupport::LogCapture log;
        LinkHarness h;
        AnalogCalibrationObject calibration(h.protocol());
        QVERIFY(calibration.SetCalibration(2, 1.5F, -0.25F));
        QCOMPARE(h.lastBytes(), hex("00 00 04 03 02 02 0800 0000C03F 000080BE"));
        QVERIFY(log.contains(QStringLiteral("SetCalibration attr:2 slope:1.5 offset:-0.25")));

        QVERIFY(!calibration.SetCalibration(3, 1.0F, 0.0F));
        QVERIFY(log.contains(QStringLiteral("SetCalibration attr:3 slope:1 offset:0")));
        QCOMPARE(h.sentCount(), 1);

        QVERIFY(calibration.GetCalibration(7)); // not checked: the pump answers
        QCOMPARE(h.lastBytes(), hex("01 00 04 03 07 00"));
        QVERIFY(log.contains(QStringLiteral("GetCalibration attr:7")));
    }

    void answers_becomeSignals() {
        testsupport::LogCapture log;
        LinkHarness h;
        AnalogCalibrationObject calibration(h.protocol());
        h.add(calibration);
        QSignalSpy got(&calibration, &AnalogCalibrationObject::ackGetCalibration);
        QSignalSpy set(&calibration, &AnalogCalibrationObject::ackSetCalibration);
        QSignalSpy nakGet(&calibration, &AnalogCalibrationObject::nakGet);
        QSignalSpy invalidAttribute(&calibration, &AnalogCalibrationObject::invalidAttribute);
        QSignalSpy invalidData(&calibration, &AnalogCalibrationObject::invalidData);

        calibration.GetCalibration(1);
        h.ack(le<float>(2.0F) + le<float>(0.5F));
        QCOMPARE(got.takeFirst(), (QList<QVariant>{QVariant::fromValue<uint8_t>(1), 2.0F, 0.5F}));
        calibration.GetCalibration(1);
        h.ack(le<float>(2.0F));
        QCOMPARE(invalidData.takeFirst().at(0).value<uint8_t>(), 1);
        QVERIFY(log.contains(QStringLiteral("HandleGetAck - Protocol message data read failure")));
        calibration.GetCalibration(0);
        h.refuse();
        QCOMPARE(nakGet.takeFirst().at(0).value<uint8_t>(), 0);
        calibration.GetCalibration(5);
        h.refuse();
        QCOMPARE(invalidAttribute.takeFirst().at(0).value<uint8_t>(), 5);

        calibration.SetCalibration(0, 1.0F, 0.0F);
        h.ack();
        calibration.SetCalibration(0, 1.0F, 0.0F);
        h.refuse();
        QCOMPARE(set.size(), 2);
        QCOMPARE(set.at(0).at(0).toBool(), true);
        QCOMPARE(set.at(1).at(0).toBool(), false);
    }

    void timeoutsAndPumpRequests() {
        LinkHarness h;
        AnalogCalibrationObject calibration(h.protocol());
        h.add(calibration);
        QSignalSpy getTimeout(&calibration, &AnalogCalibrationObject::getTimeout);
        QSignalSpy setTimeout(&calibration, &AnalogCalibrationObject::setTimeout);
        QSignalSpy invalidType(&calibration, &AnalogCalibrationObject::invalidType);
        calibration.GetCalibration(2);
        calibration.SetCalibration(1, 1.0F, 1.0F);
        h.timeOut();
        QCOMPARE(getTimeout.takeFirst().at(0).value<uint8_t>(), 2);
        QCOMPARE(setTimeout.takeFirst().at(0).value<uint8_t>(), 1);

        h.clearSent();
        h.pumpRequest(4, 3, 0, 8, le<float>(1.0F));
        QCOMPARE(invalidType.size(), 1);
        QCOMPARE(h.sentCount(), 0);
    }
};

class AnalogFilterObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        AnalogFilterObject filter(h.protocol());
        filter.GetNumSamplesCurrent();
        filter.GetNumSamplesCurrentLimits();
        filter.GetNumSamplesVoltage();
        filter.GetNumSamplesVoltageLimits();
        filter.SetNumSamplesCurrent(16);
        filter.SetNumSamplesVoltage(300);
        QVERIFY(filter.Subscribe(5, 100, true));
        QVERIFY(!filter.Subscribe(4, 100, true));
        QVERIFY(!filter.Unsubscribe(7));
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 04 04 01 00"), hex("01 00 04 04 02 00"),
                                    hex("02 00 04 04 03 00"), hex("03 00 04 04 04 00"),
                                    hex("04 00 04 04 01 02 0400 10000000"),
                                    hex("05 00 04 04 03 02 0400 2C010000"),
                                    hex("06 00 04 04 05 06 0300 6400 01")}));
    }

    void answers_becomeSignals_andSubscriptionAnswersAreSwallowed() {
        testsupport::LogCapture log;
        LinkHarness h;
        AnalogFilterObject filter(h.protocol());
        h.add(filter);
        QSignalSpy count(&filter, &AnalogFilterObject::ackGetNumSamples);
        QSignalSpy limits(&filter, &AnalogFilterObject::ackGetNumSamplesLimits);
        QSignalSpy set(&filter, &AnalogFilterObject::ackSetNumSamples);
        QSignalSpy nakGet(&filter, &AnalogFilterObject::nakGet);
        QSignalSpy invalidData(&filter, &AnalogFilterObject::invalidData);
        QSignalSpy subscribed(&filter, &AnalogFilterObject::ackSubscribeResult);

        filter.GetNumSamplesVoltage();
        h.ack(le<uint32_t>(64));
        QCOMPARE(count.takeFirst(), (QList<QVariant>{QVariant::fromValue<uint8_t>(3),
                                                     QVariant::fromValue<size_t>(64)}));
        filter.GetNumSamplesCurrentLimits();
        h.ack(le<uint32_t>(1) + le<uint32_t>(1000));
        QCOMPARE(limits.takeFirst().at(2).value<size_t>(), size_t(1000));
        filter.GetNumSamplesVoltageLimits();
        h.ack(le<uint32_t>(1));
        QCOMPARE(invalidData.takeFirst().at(0).value<uint8_t>(), 4);
        QVERIFY(log.contains(QStringLiteral("HandleGetNumSamplesLimits")));
        filter.GetNumSamplesCurrent();
        h.refuse();
        QCOMPARE(nakGet.takeFirst().at(0).value<uint8_t>(), 1);

        filter.SetNumSamplesCurrent(8);
        h.ack();
        filter.SetNumSamplesVoltage(8);
        h.refuse();
        QCOMPARE(set.at(0), (QList<QVariant>{QVariant::fromValue<uint8_t>(1), true}));
        QCOMPARE(set.at(1), (QList<QVariant>{QVariant::fromValue<uint8_t>(3), false}));

        filter.Subscribe(6, 100, false);
        QCOMPARE(h.ack(), Status::Success);
        filter.Unsubscribe(6);
        h.refuse();
        QCOMPARE(subscribed.size(), 0);
    }

    void updates_areNeverAnswered() {
        testsupport::LogCapture log;
        LinkHarness h;
        AnalogFilterObject filter(h.protocol());
        h.add(filter);
        QSignalSpy data(&filter, &AnalogFilterObject::updateFilterData);
        QSignalSpy invalidData(&filter, &AnalogFilterObject::invalidData);
        QSignalSpy invalidAttribute(&filter, &AnalogFilterObject::invalidAttribute);
        QSignalSpy invalidOperation(&filter, &AnalogFilterObject::invalidOperation);

        h.pumpRequest(4, 4, 5, 8,
                      le<float>(12000.5F) + le<float>(2.0F) + le<float>(1600.25F) +
                          le<float>(0.5F));
        QCOMPARE(data.size(), 1);
        const auto sample = data.takeFirst().at(1).value<AnalogFilterData>();
        QCOMPARE(sample.input, 12000.5F);
        QCOMPARE(sample.inputVariance, 1600.25F);
        QCOMPARE(sample.outputVariance, 0.5F);

        h.pumpRequest(4, 4, 6, 8, le<uint32_t>(1) + le<uint32_t>(2) + le<uint32_t>(3));
        QCOMPARE(invalidData.takeFirst().at(0).value<uint8_t>(), 6);
        QVERIFY(log.contains(QStringLiteral("HandleUpdate - Protocol message data read failure")));
        h.pumpRequest(4, 4, 1, 8, le<uint32_t>(1));
        QCOMPARE(invalidAttribute.takeFirst().at(0).value<uint8_t>(), 1);
        h.pumpRequest(4, 4, 5, 0);
        QCOMPARE(invalidOperation.size(), 1);
        QCOMPARE(h.sentCount(), 0);
    }

    void timeouts_followTheOperation() {
        LinkHarness h;
        AnalogFilterObject filter(h.protocol());
        h.add(filter);
        QSignalSpy getTimeout(&filter, &AnalogFilterObject::getTimeout);
        QSignalSpy subTimeout(&filter, &AnalogFilterObject::subscribeTimeout);
        filter.GetNumSamplesCurrent();
        filter.Subscribe(5, 100, false);
        h.timeOut();
        QCOMPARE(getTimeout.size(), 1);
        QCOMPARE(subTimeout.size(), 1);
    }
};

OBJECTS_TEST(AnalogInputObjectTest)
OBJECTS_TEST(AnalogCalibrationObjectTest)
OBJECTS_TEST(AnalogFilterObjectTest)

#include "AnalogObjectsTest.moc"
