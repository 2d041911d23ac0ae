// The network and logger proxies.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::LoggerObject;
using communication::objects::NetworkObject;
using halyard::protocol::IpConfig;
using halyard::protocol::MacAddress;
using testsupport::hex;
using testsupport::LinkHarness;
using Status = halyard::protocol::message::Status;

namespace {

// 192.168.0.10 / 255.255.255.0 / 192.168.0.1 with DHCP off, most significant byte first.
const QByteArray kIpConfigBytes = hex("00 C0A8000A FFFFFF00 C0A80001");
const IpConfig kIpConfig{false, 0xC0A8000A, 0xFFFFFF00, 0xC0A80001};

} // namespace

class NetworkObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes_withBigEndianAddresses() {
        LinkHarness h;
        NetworkObject network(h.protocol());
        network.GetAnybusModuleType();
        network.GetAnybusVersion();
        network.GetMacAddress();
        network.GetIpConfig();
        QVERIFY(network.SetIpSettings(kIpConfig, 0x5A));
        network.ResetIpConfig();
        network.ResetFileSystem();
        QVERIFY(network.Subscribe(9, 1000, true)); // not checked here: the pump judges it
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 06 01 01 00"), hex("01 00 06 01 02 00"),
                                    hex("02 00 06 01 03 00"), hex("03 00 06 01 04 00"),
                                    hex("04 00 06 01 04 02 0E00") + kIpConfigBytes + hex("5A"),
                                    hex("05 00 06 01 04 05"), hex("06 00 06 01 06 05"),
                                    hex("07 00 06 01 09 06 0300 E803 01")}));
    }

    void getAnswers_becomeSignals() {
        testsupport::LogCapture log;
        LinkHarness h;
        NetworkObject network(h.protocol());
        h.add(network);
        QSignalSpy module(&network, &NetworkObject::getAnybusModuleResult);
        QSignalSpy version(&network, &NetworkObject::getAnybusVersionResult);
        QSignalSpy mac(&network, &NetworkObject::getMacAddressResult);
        QSignalSpy ip(&network, &NetworkObject::getIpConfigResult);

        network.GetAnybusModuleType();
        h.ack(hex("03"));
        QCOMPARE(uint8_t(module.takeFirst().at(0).value<halyard::protocol::AnybusModuleType>()), 3);
        network.GetAnybusVersion();
        h.ack(hex("01 02 03"));
        QCOMPARE(version.takeFirst(),
                 (QList<QVariant>{QVariant::fromValue<uint8_t>(1), QVariant::fromValue<uint8_t>(2),
                                  QVariant::fromValue<uint8_t>(3)}));
        network.GetMacAddress();
        h.ack(hex("00 30 11 AA BB CC"));
        QCOMPARE(mac.takeFirst().at(0).value<MacAddress>(),
                 (MacAddress{0x00, 0x30, 0x11, 0xAA, 0xBB, 0xCC}));
        network.GetIpConfig();
        h.ack(kIpConfigBytes);
        QCOMPARE(ip.takeFirst().at(0).value<IpConfig>(), kIpConfig);

        network.GetMacAddress();
        h.ack(hex("00 30 11 AA BB"));
        network.GetIpConfig();
        h.ack(kIpConfigBytes.left(12));
        QCOMPARE(mac.size() + ip.size(), 0);
        QVERIFY(log.contains(QStringLiteral("GetMacAddressHandler")));
        QVERIFY(log.contains(QStringLiteral("ReadIpConfig - Protocol message data read failure")));
    }

    void timeout_isAlsoARefusal() {
        LinkHarness h;
        NetworkObject network(h.protocol());
        h.add(network);
        QSignalSpy subTimeout(&network, &NetworkObject::subscribeTimeout);
        QSignalSpy subscribed(&network, &NetworkObject::ackSubscribeResult);
        QSignalSpy getTimeout(&network, &NetworkObject::getTimedOut);
        QSignalSpy unhandled(&network, &NetworkObject::ackUnhandledType);

        network.Subscribe(5, 1000, true);
        h.timeOut();
        QCOMPARE(subTimeout.takeFirst().at(0).value<uint8_t>(), 5);
        QCOMPARE(subscribed.takeFirst(), (QList<QVariant>{false, QVariant::fromValue<uint8_t>(5)}));
        network.GetIpConfig();
        h.timeOut();
        QCOMPARE(getTimeout.takeFirst().at(0).value<uint8_t>(), 4);
        QCOMPARE(unhandled.takeFirst().at(0).value<uint8_t>(), 4);

        network.SetIpSettings(kIpConfig, 0);
        h.refuse();
        QCOMPARE(unhandled.takeFirst().at(0).value<uint8_t>(), 4);
    }

    void setResetAndSubscribeAnswers() {
        LinkHarness h;
        NetworkObject network(h.protocol());
        h.add(network);
        QSignalSpy set(&network, &NetworkObject::ackSet);
        QSignalSpy reset(&network, &NetworkObject::ackReset);
        QSignalSpy subscribed(&network, &NetworkObject::ackSubscribeResult);
        network.SetIpSettings(kIpConfig, 0);
        h.ack();
        network.ResetFileSystem();
        h.ack();
        network.Subscribe(4, 100, true);
        h.ack();
        QCOMPARE(set.takeFirst().at(0).value<uint8_t>(), 4);
        QCOMPARE(reset.takeFirst().at(0).value<uint8_t>(), 6);
        QCOMPARE(subscribed.takeFirst().at(0).toBool(), true);
    }

    void updates_ipConfigAndLinkStatus() {
        testsupport::LogCapture log;
        LinkHarness h;
        NetworkObject network(h.protocol());
        h.add(network);
        QSignalSpy ip(&network, &NetworkObject::updateIpConfig);
        QSignalSpy link(&network, &NetworkObject::updateLinkStatus);

        h.pumpRequest(6, 1, 4, 8, kIpConfigBytes);
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        QCOMPARE(ip.takeFirst().at(0).value<IpConfig>(), kIpConfig);
        h.pumpRequest(6, 1, 5, 8, hex("0B"));
        QCOMPARE(h.lastBytes(), hex("40 01 00"));
        QCOMPARE(link.takeFirst(), (QList<QVariant>{true, true, false, true}));

        h.pumpRequest(6, 1, 5, 8);
        QCOMPARE(h.lastBytes(), hex("40 03 08"));
        QVERIFY(log.contains(QStringLiteral("UpdateLinkStatusHandler")));
        h.pumpRequest(6, 1, 3, 8, hex("01"));
        QCOMPARE(h.lastBytes(), hex("40 03 04"));
        h.pumpRequest(6, 1, 4, 2, kIpConfigBytes);
        QCOMPARE(h.lastBytes(), hex("40 03 05"));
    }
};

class LoggerObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        LoggerObject logger(h.protocol());
        logger.ClearLog();
        logger.GetFirstLogEntry();
        logger.GetNextLogEntry();
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 07 01 00 05"), hex("01 00 07 01 01 00"),
                                    hex("02 00 07 01 02 00")}));
    }

    void entries_upTo139Characters_areRead() {
        testsupport::LogCapture log;
        LinkHarness h;
        LoggerObject logger(h.protocol());
        h.add(logger);
        QSignalSpy first(&logger, &LoggerObject::getFirstLogEntryResponse);
        QSignalSpy next(&logger, &LoggerObject::getNextLogEntryResponse);

        const QByteArray longest(139, 'e');
        logger.GetFirstLogEntry();
        h.ack(longest + '\0');
        QCOMPARE(first.takeFirst().at(0).toString(), QString::fromLatin1(longest));
        logger.GetNextLogEntry();
        h.ack(QByteArray(140, 'e') + '\0');
        QCOMPARE(next.size(), 0);
        QVERIFY(log.contains(QStringLiteral("GetLogEntryResponseHandler")));
        logger.GetNextLogEntry();
        h.ack(QByteArray("12:00 Overcurrent") + '\0');
        QCOMPARE(next.takeFirst().at(0).toString(), QStringLiteral("12:00 Overcurrent"));
    }

    void getTimeout_alsoReportsAClearTimeout_andRefusedClearIsAcknowledged() {
        LinkHarness h;
        LoggerObject logger(h.protocol());
        h.add(logger);
        QSignalSpy getTimeout(&logger, &LoggerObject::getTimeout);
        QSignalSpy clearTimeout(&logger, &LoggerObject::clearLogTimeout);
        QSignalSpy cleared(&logger, &LoggerObject::ackClearLog);
        QSignalSpy nak(&logger, &LoggerObject::getNak);

        logger.GetFirstLogEntry();
        h.timeOut();
        QCOMPARE(getTimeout.takeFirst().at(0).value<uint8_t>(), 1);
        QCOMPARE(clearTimeout.size(), 1);
        logger.ClearLog();
        h.timeOut();
        QCOMPARE(clearTimeout.size(), 2);
        QCOMPARE(getTimeout.size(), 0);

        logger.ClearLog();
        h.ack();
        logger.ClearLog();
        h.refuse();
        QCOMPARE(cleared.size(), 2);
        logger.GetNextLogEntry();
        h.refuse();
        QCOMPARE(nak.takeFirst().at(0).value<uint8_t>(), 2);
    }
};

OBJECTS_TEST(NetworkObjectTest)
OBJECTS_TEST(LoggerObjectTest)

#include "NetworkAndLoggerObjectsTest.moc"
