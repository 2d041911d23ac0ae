// The firmware-update proxy: the wire form of docs/firmware-update-object.md and its retries.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareImageCrc32.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareUpdateObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::FirmwareImageCrc32;
using communication::objects::FirmwareUpdateObject;
using halyard::firmwareUpdate::FirmwareUpdateStatus;
using testsupport::hex;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

class FirmwareUpdateObjectTest : public QObject {
    Q_OBJECT

private slots:
    void controlRequests_haveTheirExactBytes() {
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        QVERIFY(update.RequestStart(1, 4096, 0xCBF43926));
        QVERIFY(update.RequestVerify(1));
        QVERIFY(update.RequestStop(2));
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 01 03 00 0B 0900 01 00100000 2639F4CB"),
                                    hex("01 00 01 03 00 0A 0100 01"),
                                    hex("02 00 01 03 00 0C 0100 02")}));
        QCOMPARE(FirmwareImageCrc32(QByteArrayView("123456789")), 0xCBF43926u);
    }

    void dataRequest_isAcknowledgedBeforeItIsRaised() {
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

    void badPumpRequests_areRefused() {
        testsupport::LogCapture log;
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        h.add(update);
        QSignalSpy request(&update, &FirmwareUpdateObject::dataRequest);

        h.pumpRequest(1, 3, 1, 0, hex("01 00040000 00"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        h.pumpRequest(1, 3, 1, 0, hex("01 00040000 FC04")); // 1276 bytes: more than a payload
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QCOMPARE(log.count(QStringLiteral(
                     "HandleIncomingDataRequest - Protocol message data read failure")),
                 2);
        h.pumpRequest(1, 3, 3, 8, hex("03 01"));
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        h.pumpRequest(1, 3, 1, 8, hex("01 00040000 0004"));
        QCOMPARE(h.lastBytes(), hex("40 03 05"));
        h.pumpRequest(1, 3, 2, 2, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        QCOMPARE(request.size(), 0);
    }

    void statusUpdate_isLoggedAnsweredAndRaised() {
        testsupport::LogCapture log;
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        h.add(update);
        QSignalSpy status(&update, &FirmwareUpdateObject::statusUpdate);

        h.pumpRequest(1, 3, 3, 8, hex("04 01 00080000 00100000"));
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        const auto got = status.takeFirst().at(0).value<FirmwareUpdateStatus>();
        QCOMPARE(got.stage, 4);
        QCOMPARE(got.Percent(), 50u);
        QVERIFY(log.contains(
            QStringLiteral(">>> Device::FirmwareUpdate::StatusUpdate: Programming failed [4]")));
    }

    void firmwareData_fillsAPayloadAtMost() {
        testsupport::LogCapture log;
        LinkHarness h;
        FirmwareUpdateObject update(h.protocol());
        const QByteArray piece(int(FirmwareUpdateObject::kMaxDataLength), '\x5A');
        QVERIFY(update.SendFirmwareData(2, 0x10000, piece));
        QCOMPARE(h.lastBytes(), hex("00 00 01 03 02 02 0005 02 00000100") + piece);
        QVERIFY(!update.SendFirmwareData(2, 0, piece + 'x'));
        QVERIFY(
            log.contains(QStringLiteral("SendFirmwareData - Protocol message data write failure")));
        QCOMPARE(h.sentCount(), 1);
    }

    void unansweredRequest_isSentFourTimesThenFails() {
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

    void requestsLostWithAClearedLink_doNotBlockNewOnes() {
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

    void answeredRequests_areNotRepeated() {
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
};

OBJECTS_TEST(FirmwareUpdateObjectTest)

#include "FirmwareUpdateObjectTest.moc"
