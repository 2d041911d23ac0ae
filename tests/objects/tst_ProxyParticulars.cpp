// What sets single proxies apart from the others: the firmware-update proxy's own retries and
// ordering, the speed commander's request payloads, the placeholder objects and the detail texts.
#include "tests/support/LinkHarness.h"
#include "tests/support/LogCapture.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareImageCrc32.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareUpdateObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolBandwidthObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolTestObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

using namespace communication::objects;
using halyard::pump::ControlInput;
using testsupport::hex;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

class ProxyParticularsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { registerProtocolObjectMetaTypes(); }

    // The firmware transfer itself is proven end to end; a stop is sent only when it fails.
    void firmwareStop_andImageCrc() {
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        QVERIFY(update.RequestStop(2));
        QCOMPARE(h.lastBytes(), hex("00 00 01 03 00 0C 0100 02"));
        QCOMPARE(FirmwareImageCrc32(QByteArrayView("123456789")), 0xCBF43926u);
    }

    void firmwareData_fillsAPayloadAtMost() {
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        const QByteArray piece(int(FirmwareUpdateObject::kMaxDataLength), '\x5A');
        QVERIFY(update.SendFirmwareData(2, 0x10000, piece));
        QCOMPARE(h.lastBytes(), hex("00 00 01 03 02 02 0005 02 00000100") + piece);
    }

    void firmwareDataRequest_isAcknowledgedBeforeItIsRaised() {
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        h.add(update);
        QByteArray repliesWhenRaised;
        QObject::connect(&update, &FirmwareUpdateObject::dataRequest,
                         [&] { repliesWhenRaised = h.lastBytes(); });
        QSignalSpy request(&update, &FirmwareUpdateObject::dataRequest);

        h.pumpRequest(1, 3, 1, 0, hex("01 00040000 0004"));
        QCOMPARE(repliesWhenRaised, hex("40 01 00"));
        QCOMPARE(request.takeFirst(), (QList<QVariant>{QVariant::fromValue<uint8_t>(1),
                                                       QVariant::fromValue<uint32_t>(1024),
                                                       QVariant::fromValue<uint16_t>(1024)}));
    }

    void firmwareRequest_unansweredIsSentFourTimesThenFails() {
        testsupport::LogCapture log;
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        h.add(update);
        QSignalSpy failed(&update, &FirmwareUpdateObject::requestFailed);

        update.SendFirmwareData(1, 2048, QByteArray(4, '\x01'));
        for (int timeout = 1; timeout <= 3; ++timeout) {
            h.timeOut();
            QCOMPARE(h.sentCount(), timeout + 1);
            QVERIFY(log.contains(QStringLiteral("HandleRequestTimeout: Retry #%1").arg(timeout)));
        }
        QCOMPARE(h.sentBytes().at(3).mid(1), h.sentBytes().at(0).mid(1)); // same request, own id
        QCOMPARE(failed.size(), 0);
        h.timeOut();
        QCOMPARE(h.sentCount(), 4);
        QCOMPARE(failed.takeFirst(), (QList<QVariant>{QVariant::fromValue<uint8_t>(2),
                                                      QVariant::fromValue<uint8_t>(2)}));
        QVERIFY(log.contains(QStringLiteral("HandleRequestTimeout: Failed to retry")));
        h.timeOut();
        QCOMPARE(h.sentCount(), 4);
    }

    void firmwareRequestsLostWithAClearedLink_doNotBlockNewOnes() {
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        h.add(update);
        for (uint32_t piece = 0; piece < 4; ++piece) {
            QVERIFY(update.SendFirmwareData(1, piece * 16, QByteArray(16, '\x01')));
        }
        h.protocol().ClearRequestLog(); // their answers and time-outs never come
        for (uint32_t piece = 4; piece < 9; ++piece) {
            QVERIFY(update.SendFirmwareData(1, piece * 16, QByteArray(16, '\x01')));
        }
        h.clearSent();
        h.timeOut();
        QCOMPARE(h.sentCount(), 4); // the last four are repeated; the fifth replaced the oldest
    }

    void firmwareRequest_answeredIsNotRepeated() {
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        h.add(update);
        QSignalSpy accepted(&update, &FirmwareUpdateObject::requestAccepted);
        QSignalSpy refused(&update, &FirmwareUpdateObject::requestRefused);

        update.RequestStart(1, 100, 0);
        h.timeOut(); // one repeat, then answered
        h.ack();
        QCOMPARE(accepted.takeFirst(), (QList<QVariant>{QVariant::fromValue<uint8_t>(0),
                                                        QVariant::fromValue<uint8_t>(11)}));
        update.RequestVerify(1);
        h.refuse(Status::Failed);
        QCOMPARE(refused.takeFirst().at(2).value<Status>(), Status::Failed);
        const int sent = h.sentCount();
        h.timeOut();
        QCOMPARE(h.sentCount(), sent);
    }

    // The commander's gets and set-defaults carry the payload of the request before them, which
    // the pump ignores; the wire keeps it so.
    void speedCommander_getsAndSetDefaultsCarryThePreviousPayload() {
        LinkHarness h;
        SpeedCommanderObject commander(h.protocol());
        QVERIFY(commander.SetEnableLineSpeed(500));
        QCOMPARE(h.lastBytes(), hex("00 00 05 01 09 02 0400 F4010000"));
        QVERIFY(commander.Get(1));
        QCOMPARE(h.lastBytes(), hex("01 00 05 01 01 00 0400 F4010000"));
        QVERIFY(commander.SetDefault(12));
        QCOMPARE(h.lastBytes(), hex("02 00 05 01 0C 04 0400 F4010000"));
    }

    // The pump's test and bandwidth objects, which the simulator never uses.
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

    void detailTexts_coverEveryNumberAndNameTheRest() {
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

        QCOMPARE(ControlInputText(ControlInput::EnableLine), QStringLiteral("Enable line"));
        QCOMPARE(ControlInputFromText(QStringLiteral("Network")), ControlInput::Network);
        QCOMPARE(ControlInputFromText(QStringLiteral("Freq")), ControlInput::Frequency);
        QCOMPARE(ControlInputFromText(QStringLiteral("Networks")), std::nullopt);
        QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                                 ControlInputText(static_cast<ControlInput>(7)));
    }
};

QTEST_GUILESS_MAIN(ProxyParticularsTest)
#include "tst_ProxyParticulars.moc"
