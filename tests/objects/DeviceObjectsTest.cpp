// The device, OEM device, protocol test and bandwidth proxies, and the detail texts.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolBandwidthObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolTestObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

using namespace communication::objects;
using halyard::pump::ControlInput;
using testsupport::hex;
using testsupport::le;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

class DeviceObjectTest : public QObject {
    Q_OBJECT

private slots:
    void detailsAndReset() {
        testsupport::LogCapture log;
        LinkHarness h;
        DeviceObject device(h.protocol());
        h.add(device);
        QSignalSpy details(&device, &DeviceObject::receivedDeviceDetails);
        QSignalSpy reset(&device, &DeviceObject::receivedResetAck);

        device.RequestGetAll();
        QCOMPARE(h.lastBytes(), hex("00 00 01 01 00 01"));
        h.ack(hex("09 01 10 02"));
        const auto got = details.takeFirst().at(0).value<DeviceDetails>();
        QCOMPARE(got.deviceType, 9);
        QCOMPARE(got.AppVersionText(), QStringLiteral("1.16.2"));

        device.RequestGetAll();
        QCOMPARE(h.ack(hex("09 01 10")), Status::Failed);
        QCOMPARE(details.size(), 0);
        QVERIFY(
            log.contains(QStringLiteral("HandleResponseAll - Protocol message data read failure")));

        device.RequestReset();
        QCOMPARE(h.lastBytes(), hex("00 00 01 01 00 05"));
        h.ack();
        QCOMPARE(reset.size(), 1);
        device.RequestReset();
        QCOMPARE(h.refuse(), Status::Failed); // refusals are not consumed
        QCOMPARE(reset.size(), 1);
    }

    void timeouts() {
        LinkHarness h;
        DeviceObject device(h.protocol());
        h.add(device);
        QSignalSpy getTimeout(&device, &DeviceObject::getTimedOut);
        QSignalSpy resetTimeout(&device, &DeviceObject::resetTimedOut);
        device.RequestGetAll();
        device.RequestReset();
        h.timeOut();
        QCOMPARE(getTimeout.takeFirst().at(0).value<uint8_t>(), 0);
        QCOMPARE(resetTimeout.size(), 1);
    }
};

class OemDeviceObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        OemDeviceObject oem(h.protocol());
        oem.RequestGetAll();
        oem.RequestGetPumpHead();
        oem.RequestGetPumpHeads();
        oem.RequestGetPlecPortCliEnable();
        oem.RequestGetProductDescription();
        oem.RequestSetPumpHead(QStringLiteral("BW-S25"));
        oem.RequestSetPlecPortCliEnable(1);
        oem.RequestResetFram();
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 01 02 00 01"), hex("01 00 01 02 03 00"),
                                    hex("02 00 01 02 04 00"), hex("03 00 01 02 09 00"),
                                    hex("04 00 01 02 0A 00"),
                                    hex("05 00 01 02 03 02 0700 42572D53323500"),
                                    hex("06 00 01 02 09 02 0100 01"), hex("07 00 01 02 08 05")}));
    }

    void pumpDetails_needBothTextsTerminated() {
        testsupport::LogCapture log;
        LinkHarness h;
        OemDeviceObject oem(h.protocol());
        h.add(oem);
        QSignalSpy details(&oem, &OemDeviceObject::receivedPumpDetails);

        oem.RequestGetAll();
        h.ack(hex("04 02 05") + "SN123" + '\0' + "PN-9" + '\0' + hex("01 00"));
        const auto got = details.takeFirst().at(0).value<PumpDetails>();
        QCOMPARE(got.pumpType, 4);
        QCOMPARE(got.headType, 5);
        QCOMPARE(got.PumpSerialText(), QStringLiteral("SN123"));
        QCOMPARE(got.PartNumberText(), QStringLiteral("PN-9"));
        QCOMPARE(got.isNetworkPump, 1);
        QCOMPARE(got.isStepperPump, 0);

        oem.RequestGetAll();
        h.ack(hex("04 02 05") + "SN123");
        oem.RequestGetAll();
        h.ack(hex("04 02 05") + QByteArray(33, 'S') + '\0' + "PN" + '\0' + hex("01 00"));
        QCOMPARE(details.size(), 0);
        QCOMPARE(log.count(QStringLiteral("HandleGetAllResponse")), 2);
    }

    void pumpHeadList_isAllOrNothing() {
        testsupport::LogCapture log;
        LinkHarness h;
        OemDeviceObject oem(h.protocol());
        h.add(oem);
        QSignalSpy heads(&oem, &OemDeviceObject::receivedPumpHeads);
        const QByteArray row = QByteArray("BW-S25") + '\0' + le<uint32_t>(500) + hex("04 02");

        oem.RequestGetPumpHeads();
        h.ack(row + row);
        const auto list = heads.takeFirst().at(0).value<QList<QPumpHeadParameterTypes>>();
        QCOMPARE(list.size(), 2);
        QCOMPARE(list.at(1).name, QStringLiteral("BW-S25"));
        QCOMPARE(list.at(1).value, 500u);
        QCOMPARE(list.at(1).parameterB, 2);

        oem.RequestGetPumpHeads();
        h.ack(row + row.left(9));
        oem.RequestGetPumpHeads();
        h.ack();
        QCOMPARE(heads.size(), 0);
        QCOMPARE(log.count(QStringLiteral("HandleGetPumpHeadsResponse")), 2);
    }

    void singleValuesAndDescription() {
        LinkHarness h;
        OemDeviceObject oem(h.protocol());
        h.add(oem);
        QSignalSpy head(&oem, &OemDeviceObject::receivedPumpHead);
        QSignalSpy cli(&oem, &OemDeviceObject::receivedCliEnableAck);
        QSignalSpy description(&oem, &OemDeviceObject::receivedProductDescription);

        oem.RequestGetPumpHead();
        h.ack(hex("07"));
        QCOMPARE(uint8_t(head.takeFirst().at(0).value<halyard::pump::PumpHead>()), 7);
        oem.RequestGetPlecPortCliEnable();
        h.ack(hex("01"));
        QCOMPARE(cli.takeFirst().at(0).value<uint8_t>(), 1);
        oem.RequestGetProductDescription();
        h.ack(QByteArray(64, 'd') + '\0');
        auto answer = description.takeFirst();
        QCOMPARE(answer.at(0).toBool(), true);
        QCOMPARE(answer.at(1).value<PumpDetails>().ProductDescriptionText().size(), 64);
        oem.RequestGetProductDescription();
        h.ack(QByteArray(65, 'd') + '\0');
        QCOMPARE(description.takeFirst().at(0).toBool(), false);
    }

    void setAndResetAnswers_reportSuccessAndStatus() {
        LinkHarness h;
        OemDeviceObject oem(h.protocol());
        h.add(oem);
        QSignalSpy set(&oem, &OemDeviceObject::receivedSetAck);
        QSignalSpy reset(&oem, &OemDeviceObject::receivedResetFramAck);
        QSignalSpy setTimeout(&oem, &OemDeviceObject::setTimedOut);

        oem.RequestSetPumpHead(QStringLiteral("X"));
        h.ack();
        QCOMPARE(set.takeFirst(), (QList<QVariant>{true, QVariant::fromValue<uint8_t>(3),
                                                   QVariant::fromValue(Status::Success)}));
        oem.RequestSetPlecPortCliEnable(0);
        h.refuse(Status::InvalidMessageData);
        QCOMPARE(set.takeFirst(),
                 (QList<QVariant>{false, QVariant::fromValue<uint8_t>(9),
                                  QVariant::fromValue(Status::InvalidMessageData)}));

        oem.RequestResetFram();
        h.ack();
        oem.RequestResetFram();
        h.refuse();
        QCOMPARE(reset.size(), 2);
        QCOMPARE(reset.at(0).at(0).toBool(), true);
        QCOMPARE(reset.at(1).at(0).toBool(), false);

        oem.RequestSetPumpHead(QStringLiteral("X"));
        h.timeOut();
        QCOMPARE(setTimeout.takeFirst().at(0).value<uint8_t>(), 3);
    }

    void pumpRequests_areAnsweredInvalidMessageData() {
        LinkHarness h;
        OemDeviceObject oem(h.protocol());
        h.add(oem);
        h.pumpRequest(1, 2, 3, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
    }
};

class DetailTextsTest : public QObject {
    Q_OBJECT

private slots:
    void deviceAndMotorTypes() {
        QCOMPARE(DeviceTypeText(1), QStringLiteral("Stepper Analog"));
        QCOMPARE(DeviceTypeText(9), QStringLiteral("Stepper Analog"));
        QCOMPARE(DeviceTypeText(10), DeviceTypeText(4));
        QCOMPARE(DeviceTypeText(8), QStringLiteral("BLDC Network"));
        QCOMPARE(DeviceTypeText(11), QStringLiteral("Error"));
        QCOMPARE(MotorTypeText(8), QStringLiteral("nema24f"));
        QCOMPARE(MotorTypeText(9), QStringLiteral("nema17h"));
        QCOMPARE(MotorTypeText(10), QStringLiteral("Error"));
        QCOMPARE(SpeedChangeText(2), QStringLiteral("Decrease"));
        QCOMPARE(SpeedChangeText(3), QStringLiteral("Out of range"));
        QVERIFY(!PumpHeadCatalogueEntry(26).name.isEmpty());
        QVERIFY(PumpHeadCatalogueEntry(27).name.isEmpty());
    }

    void controlInputs_bothWays() {
        QCOMPARE(ControlInputText(ControlInput::EnableLine), QStringLiteral("Enable line"));
        QCOMPARE(ControlInputFromText(QStringLiteral("Network")), ControlInput::Network);
        QCOMPARE(ControlInputFromText(QStringLiteral("Freq")), ControlInput::Frequency);
        QCOMPARE(ControlInputFromText(QStringLiteral("Networks")), std::nullopt);
        try {
            ControlInputText(static_cast<ControlInput>(7));
            QFAIL("control input 7 was accepted");
        } catch (const std::runtime_error& error) {
            QVERIFY(QString::fromLatin1(error.what())
                        .startsWith(QStringLiteral(
                            "ASSERT FAILED: \"(size_t)controlInput < (size_t)ControlInput::Count\" "
                            "in QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/"
                            "EnumerationTexts, Line ")));
        }
    }
};

class ProtocolPlaceholdersTest : public QObject {
    Q_OBJECT

private slots:
    void testAndBandwidthRequests_areAcknowledged() {
        LinkHarness h;
        ProtocolTestObject test(h.protocol());
        ProtocolBandwidthObject bandwidth(h.protocol());
        h.add(test);
        h.add(bandwidth);

        QCOMPARE(h.pumpRequest(0, 1, 0, 0, hex("0102")), Status::Success);
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        QCOMPARE(h.pumpRequest(0, 2, 0, 2, QByteArray(1000, 'x')), Status::Success);
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        QCOMPARE(test.TestRequestCount(), 1u);
        QCOMPARE(bandwidth.ReceivedMessages(), 1u);
        QCOMPARE(bandwidth.ReceivedPayloadBytes(), 1000u);
        QCOMPARE(h.pumpRequest(0, 3, 0, 0), Status::InvalidInstance);
    }
};

OBJECTS_TEST(DeviceObjectTest)
OBJECTS_TEST(OemDeviceObjectTest)
OBJECTS_TEST(DetailTextsTest)
OBJECTS_TEST(ProtocolPlaceholdersTest)

#include "DeviceObjectsTest.moc"
