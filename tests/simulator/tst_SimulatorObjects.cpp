// The simulated pump's objects answer as their attribute tables say, byte for byte: one
// representative request (and its refusals) per object.

#include "SimulatorRig.h"

#include <QRegularExpression>
#include <QTest>

#include <cstring>

using namespace simtest;

namespace {

/// An answer with payload: id 0, AckStatus, Success, the u16 length, then the payload.
QString ackWith(const QByteArray& payload) {
    QByteArray bytes("\x00\x01\x00", 3);
    bytes += le<std::uint16_t>(static_cast<std::uint16_t>(payload.size()));
    bytes += payload;
    return hex(bytes);
}

QByteArray fromHex(const char* text) {
    return QByteArray::fromHex(QByteArray(text));
}

const QString kAck = QStringLiteral("00 01 00");
const QString kInvalidInstance = QStringLiteral("00 03 03");
const QString kInvalidObject = QStringLiteral("00 03 02");
const QString kInvalidAttribute = QStringLiteral("00 03 04");
const QString kInvalidOperation = QStringLiteral("00 03 05");
const QString kInvalidData = QStringLiteral("00 03 08");
const QString kInvalidSubscribe = QStringLiteral("00 03 0d");

} // namespace

class tst_SimulatorObjects : public QObject {
    Q_OBJECT

private slots:
    void sessionObject_pingVersionStartStop() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(0, 0, 0, Operation::Get), kAck);
        QCOMPARE(rig.askHex(0, 0, 1, Operation::Get), ackWith(fromHex("010000")));
        QCOMPARE(rig.askHex(0, 0, 2, Operation::Set, fromHex("e8")), kInvalidData);
        QVERIFY(!rig.sim().sessionActive());
        QCOMPARE(rig.askHex(0, 0, 2, Operation::Set, fromHex("e803")), kAck);
        QVERIFY(rig.sim().sessionActive());
        QCOMPARE(rig.askHex(0, 0, 3, Operation::Set), kAck);
        QVERIFY(!rig.sim().sessionActive());
        QCOMPARE(rig.askHex(0, 0, 9, Operation::Get), kInvalidAttribute);
        QCOMPARE(rig.askHex(0, 0, 1, Operation::Reset), kInvalidOperation);
        // Objects that do not exist: an unknown object, and an unknown device instance.
        QCOMPARE(rig.askHex(0x42, 0, 0, Operation::Get), kInvalidObject);
        QCOMPARE(rig.askHex(1, 7, 0, Operation::Get), kInvalidInstance);
    }

    void deviceObjects_reportDefaultIdentity() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        // Stepper analog (1), firmware 1.16.1.
        QCOMPARE(rig.askHex(1, 1, 0, Operation::GetAll), ackWith(fromHex("01011001")));
        QByteArray details = fromHex("010300");
        details += QByteArray("SIM-000001", 11) + QByteArray("BWD-100-SIM", 12);
        details += fromHex("0001");
        QCOMPARE(rig.askHex(1, 2, 0, Operation::GetAll), ackWith(details));
        QCOMPARE(rig.askHex(1, 2, 10, Operation::Get),
                 ackWith(QByteArray("Simulated peristaltic pump drive", 33)));
        QCOMPARE(rig.askHex(1, 1, 0, Operation::Get), kInvalidOperation);
    }

    // What the firmware-update object refuses before any transfer; the transfer itself is
    // proven end to end against the application's proxy.
    void firmwareUpdateObject_refusesImpossibleRequests() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        const QString failed = QStringLiteral("00 03 01");
        QCOMPARE(rig.askHex(1, 3, 0, Operation::Start, fromHex("00")), kInvalidData);
        QCOMPARE(rig.askHex(1, 3, 0, Operation::Start, fromHex("00 00000000 00000000")),
                 kInvalidData); // an empty image
        QCOMPARE(rig.askHex(1, 3, 0, Operation::Start, fromHex("04 00100000 00000000")),
                 failed); // no bank 4
        QCOMPARE(rig.askHex(1, 3, 0, Operation::Start, fromHex("00 01001000 00000000")),
                 failed); // larger than the bank
        QCOMPARE(rig.askHex(1, 3, 0, Operation::Verify, fromHex("00")), failed);
        QCOMPARE(rig.askHex(1, 3, 2, Operation::Set, fromHex("00 00000000 aa")), kInvalidData);
        QCOMPARE(rig.askHex(1, 3, 0, Operation::Get), kInvalidOperation);
        QCOMPARE(rig.askHex(1, 3, 9, Operation::Get), kInvalidAttribute);
    }

    void deviceObjects_identityFollowsOptions() {
        SimulatorRig rig({"--variant", "network", "--motor", "bldc", "--serial", "N-7",
                          "--part-number", "P-9", "--description", "Demo", "--head", "5",
                          "--firmware-version", "2.3.4", "--protocol-version", "3.1.0"});
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(0, 0, 1, Operation::Get), ackWith(fromHex("030100")));
        QCOMPARE(rig.askHex(1, 1, 0, Operation::GetAll), ackWith(fromHex("08020304")));
        QByteArray details = fromHex("080105") + QByteArray("N-7", 4) + QByteArray("P-9", 4);
        details += fromHex("0100");
        QCOMPARE(rig.askHex(1, 2, 0, Operation::GetAll), ackWith(details));
        QCOMPARE(rig.askHex(1, 2, 10, Operation::Get), ackWith(QByteArray("Demo", 5)));
        // A BLDC pump has no stepper drive.
        QCOMPARE(rig.askHex(3, 2, 5, Operation::Get), kInvalidInstance);

        SimulatorRig numbered({"--device-type", "9", "--motor-type", "2"});
        QVERIFY(numbered.ok());
        QCOMPARE(numbered.ask(1, 2, 0, Operation::GetAll).mid(5, 2), fromHex("0902"));
    }

    void oemDevice_pumpHeadsPortSettingAndSettingsReset() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        const QByteArray heads = rig.ask(1, 2, 4, Operation::Get);
        // Rows of name with its NUL, rated speed in drpm, then the BLDC and stepper flags, in
        // the head numbering: "None" first, fitting either motor; a BLDC-only head last.
        const QByteArray firstRow = QByteArray("None", 5) + le<std::uint32_t>(0) + fromHex("0101");
        const QByteArray lastRow =
            QByteArray("BW-X36", 7) + le<std::uint32_t>(1650) + fromHex("0100");
        QCOMPARE(hex(heads.mid(5, firstRow.size())), hex(firstRow));
        QCOMPARE(hex(heads.right(lastRow.size())), hex(lastRow));
        QCOMPARE(rig.askHex(1, 2, 3, Operation::Get), ackWith(fromHex("00")));
        QCOMPARE(rig.askHex(1, 2, 3, Operation::Set, QByteArray("BW-T13", 7)), kAck);
        QCOMPARE(rig.askHex(1, 2, 3, Operation::Get), ackWith(fromHex("0b")));
        QCOMPARE(rig.askHex(1, 2, 3, Operation::Set, QByteArray("No such", 8)), kInvalidData);
        QCOMPARE(rig.askHex(1, 2, 3, Operation::Set, QByteArray("BW-T13")), kInvalidData);
        QCOMPARE(rig.askHex(1, 2, 9, Operation::Set, fromHex("01")), kAck);
        QCOMPARE(rig.askHex(1, 2, 9, Operation::Get), ackWith(fromHex("01")));
        QCOMPARE(rig.askHex(1, 2, 8, Operation::Reset), kAck);
        QCOMPARE(rig.askHex(1, 2, 9, Operation::Get), ackWith(fromHex("00")));
        QCOMPARE(rig.askHex(1, 2, 3, Operation::Get), ackWith(fromHex("0b"))); // fitted head stays
    }

    void pumpObject_faultsSpeedAndControlInput() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(2, 1, 6, Operation::Get), ackWith(le<std::uint32_t>(3000)));
        // Set fault "Stall" (type 5): the answer carries the type back; bit 5 is set.
        QCOMPARE(rig.askHex(2, 1, 1, Operation::Set, fromHex("05")), ackWith(fromHex("05")));
        QCOMPARE(rig.askHex(2, 1, 1, Operation::Get), ackWith(le<std::uint32_t>(0x20)));
        QCOMPARE(rig.askHex(2, 1, 1, Operation::Set, fromHex("0f")), kInvalidData);
        QCOMPARE(rig.askHex(2, 1, 0, Operation::Ack), kAck);
        QCOMPARE(rig.askHex(2, 1, 1, Operation::Get), ackWith(le<std::uint32_t>(0)));
        QCOMPARE(rig.askHex(2, 1, 3, Operation::Set, le<std::int32_t>(-500)), kAck);
        QCOMPARE(rig.askHex(2, 1, 3, Operation::Get), ackWith(le<std::int32_t>(-500)));
        QCOMPARE(rig.askHex(2, 1, 3, Operation::Set, le<std::int32_t>(3001)), kInvalidData);
        QCOMPARE(rig.askHex(2, 1, 2, Operation::Set, fromHex("03")), kAck);
        QCOMPARE(rig.askHex(2, 1, 2, Operation::Get), ackWith(fromHex("03")));
        QCOMPARE(rig.askHex(2, 1, 2, Operation::Set, fromHex("07")), kInvalidData);
        QCOMPARE(rig.askHex(2, 1, 4, Operation::Set, fromHex("00")), kAck);
        QCOMPARE(rig.askHex(2, 1, 4, Operation::Get), ackWith(fromHex("00")));
        QCOMPARE(rig.askHex(2, 1, 5, Operation::Set, fromHex("01")), kAck);
        QCOMPARE(rig.askHex(2, 1, 5, Operation::Get), ackWith(fromHex("01")));
        QCOMPARE(rig.askHex(2, 1, 2, Operation::Sub, fromHex("e80301")), kInvalidSubscribe);
        QCOMPARE(rig.askHex(2, 1, 10, Operation::Get), kInvalidAttribute);
        QCOMPARE(rig.askHex(2, 1, 3, Operation::Verify), kInvalidOperation);
    }

    void primeObject_primeSpeedWithinLimits() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(2, 2, 3, Operation::Get), ackWith(le<std::uint32_t>(2000)));
        QCOMPARE(rig.askHex(2, 2, 1, Operation::Get), ackWith(fromHex("00")));
        QCOMPARE(rig.askHex(2, 2, 3, Operation::Set, le<std::uint32_t>(4000)), kInvalidData);
        QCOMPARE(rig.askHex(2, 2, 3, Operation::Set, le<std::uint32_t>(1500)), kAck);
        QCOMPARE(rig.askHex(2, 2, 3, Operation::Get), ackWith(le<std::uint32_t>(1500)));
        QCOMPARE(rig.askHex(2, 2, 1, Operation::Set, fromHex("01")), kInvalidAttribute);
    }

    void motorObjects_celerationEncoderAndTorque() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(3, 1, 5, Operation::Get), ackWith(le(100.0F)));
        QCOMPARE(rig.askHex(3, 1, 7, Operation::Get), ackWith(le(1.0F) + le(1000.0F)));
        QCOMPARE(rig.askHex(3, 1, 6, Operation::Set, le(0.5F)), kInvalidData);
        QCOMPARE(rig.askHex(3, 1, 6, Operation::Set, le(250.0F)), kAck);
        QCOMPARE(rig.askHex(3, 1, 6, Operation::Get), ackWith(le(250.0F)));
        QCOMPARE(rig.ask(3, 1, 4, Operation::Get).size(), 5 + 12); // exactly 12 bytes
        QCOMPARE(rig.askHex(3, 1, 4, Operation::Sub, fromHex("e80301")), kInvalidSubscribe);
        QCOMPARE(rig.askHex(3, 2, 5, Operation::Get), ackWith(fromHex("02")));
        const QByteArray targets = rig.ask(3, 2, 6, Operation::Get);
        QCOMPARE(targets.size(), 5 + 6 * 4);
        QCOMPARE(hex(targets.mid(5, 4)), hex(le(0.5F)));
        QCOMPARE(rig.askHex(3, 2, 5, Operation::Set, fromHex("04")), kAck);
        QCOMPARE(rig.askHex(3, 2, 5, Operation::Set, fromHex("06")), kInvalidData);
    }

    void analogObjects_measurementsCalibrationAndFilter() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        const QByteArray temperature = rig.ask(4, 1, 4, Operation::Get);
        QCOMPARE(temperature.size(), 5 + 4);
        float celsius = 0.0F;
        std::memcpy(&celsius, temperature.constData() + 5, 4);
        QVERIFY2(celsius > 20.0F && celsius < 35.0F, qPrintable(QString::number(celsius)));
        QCOMPARE(rig.askHex(4, 1, 8, Operation::Get), kInvalidAttribute);
        QCOMPARE(rig.askHex(4, 1, 0, Operation::Set, le(1.0F)), kInvalidOperation);

        QCOMPARE(rig.askHex(4, 3, 0, Operation::Get), ackWith(le(1.0F) + le(0.0F)));
        QCOMPARE(rig.askHex(4, 3, 1, Operation::Set, le(2.0F) + le(-1.0F)), kAck);
        QCOMPARE(rig.askHex(4, 3, 1, Operation::Get), ackWith(le(2.0F) + le(-1.0F)));
        QCOMPARE(rig.askHex(4, 3, 2, Operation::Set, le(2.0F)), kInvalidData);
        QCOMPARE(rig.askHex(4, 3, 3, Operation::Get), kInvalidAttribute);

        QCOMPARE(rig.askHex(4, 4, 2, Operation::Get),
                 ackWith(le<std::uint32_t>(1) + le<std::uint32_t>(256)));
        QCOMPARE(rig.askHex(4, 4, 1, Operation::Get), ackWith(le<std::uint32_t>(16)));
        QCOMPARE(rig.askHex(4, 4, 3, Operation::Set, le<std::uint32_t>(0)), kInvalidData);
        QCOMPARE(rig.askHex(4, 4, 3, Operation::Set, le<std::uint32_t>(64)), kAck);
        QCOMPARE(rig.askHex(4, 4, 3, Operation::Get), ackWith(le<std::uint32_t>(64)));
        QCOMPARE(rig.askHex(4, 4, 4, Operation::Sub, fromHex("1e0000")), kInvalidSubscribe);
    }

    void speedCommander_rangesLimitsDefaultsAndHysteresis() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        const auto profile = [](std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                                std::uint32_t e) { return le(a) + le(b) + le(c) + le(d) + le(e); };
        QCOMPARE(rig.askHex(5, 1, 1, Operation::Get), ackWith(profile(0, 3000, 4000, 20000, 100)));
        QCOMPARE(rig.askHex(5, 1, 13, Operation::Get), ackWith(profile(0, 3000, 0, 10000, 100)));
        QCOMPARE(rig.askHex(5, 1, 5, Operation::Set, profile(2000, 1000, 0, 10000, 10)),
                 kInvalidData);
        QCOMPARE(rig.askHex(5, 1, 5, Operation::Set, profile(100, 2000, 500, 9000, 10)), kAck);
        QCOMPARE(rig.askHex(5, 1, 5, Operation::Get), ackWith(profile(100, 2000, 500, 9000, 10)));
        QCOMPARE(rig.askHex(5, 1, 8, Operation::Set, le<std::uint32_t>(20)), kAck);
        QCOMPARE(rig.askHex(5, 1, 5, Operation::Get), ackWith(profile(100, 2000, 500, 9000, 20)));
        QCOMPARE(rig.askHex(5, 1, 5, Operation::SetDef), kAck);
        QCOMPARE(rig.askHex(5, 1, 5, Operation::Get), ackWith(profile(0, 3000, 0, 10000, 50)));
        QCOMPARE(rig.askHex(5, 1, 10, Operation::Get),
                 ackWith(le<std::uint32_t>(0) + le<std::uint32_t>(3000)));
        QCOMPARE(rig.askHex(5, 1, 9, Operation::Set, le<std::uint32_t>(500)), kAck);
        QCOMPARE(rig.askHex(5, 1, 9, Operation::SetDef), kAck);
        QCOMPARE(rig.askHex(5, 1, 9, Operation::Get), ackWith(le<std::uint32_t>(1000)));
        QCOMPARE(rig.askHex(5, 1, 2, Operation::SetDef), kInvalidAttribute);
        // Current input 12 mA on a 4..20 mA range of 0..3000: target speed 1500.
        QCOMPARE(rig.askHex(5, 1, 3, Operation::Get), ackWith(le<std::uint32_t>(1500)));
    }

    void networkObject_onlyOnNetworkPumps() {
        SimulatorRig analog;
        QVERIFY(analog.ok());
        QCOMPARE(analog.askHex(6, 1, 4, Operation::Get), kInvalidObject);

        SimulatorRig rig({"--variant", "network"});
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get),
                 ackWith(fromHex("00c0a8000affffff00c0a80001")));
        QCOMPARE(rig.askHex(6, 1, 3, Operation::Get), ackWith(fromHex("0242574c0001")));
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Set, fromHex("010a000005ff0000000a00000101")),
                 kAck);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get),
                 ackWith(fromHex("010a000005ff0000000a000001")));
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Set, fromHex("010a0000")), kInvalidData);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Reset), kAck);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get),
                 ackWith(fromHex("00c0a8000affffff00c0a80001")));
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Set, fromHex("010a000005ff0000000a00000101")),
                 kAck);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::SetDef), kAck);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get),
                 ackWith(fromHex("00c0a8000affffff00c0a80001")));
        QCOMPARE(rig.askHex(6, 1, 6, Operation::Reset), kAck);
        QCOMPARE(rig.askHex(6, 1, 1, Operation::Get), ackWith(fromHex("01")));
        QCOMPARE(rig.askHex(6, 1, 2, Operation::Get), ackWith(fromHex("020107")));
        // Link status is published only: link up, port 1, IP established.
        QVERIFY(rig.startSession());
        QCOMPARE(rig.askHex(6, 1, 5, Operation::Sub, fromHex("e80301")), kAck);
        QTRY_VERIFY(!rig.app().updatesOf(6, 1, 5).isEmpty());
        QCOMPARE(rig.app().updatesOf(6, 1, 5).first().message.payloadLength, std::uint16_t{1});
        QCOMPARE(rig.app().updatesOf(6, 1, 5).first().message.payload[0], std::uint8_t{0x0B});
    }

    void loggerObject_readsEntriesToAnEmptyEndAndClears() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(2, 1, 1, Operation::Set, fromHex("05")), ackWith(fromHex("05")));
        const QByteArray first = rig.ask(7, 1, 1, Operation::Get);
        QVERIFY(first.endsWith('\0'));
        QVERIFY2(QRegularExpression(QStringLiteral("^\\d+:Power on, firmware 1\\.16\\.1$"))
                     .match(QString::fromLatin1(first.mid(5).chopped(1)))
                     .hasMatch(),
                 first.constData() + 5);
        const QByteArray second = rig.ask(7, 1, 2, Operation::Get);
        QVERIFY2(QString::fromLatin1(second.mid(5)).contains(QStringLiteral(":Fault: Stall")),
                 second.constData() + 5);
        QCOMPARE(rig.askHex(7, 1, 2, Operation::Get), ackWith(fromHex("00")));
        QCOMPARE(rig.askHex(7, 1, 0, Operation::Reset), kAck);
        QCOMPARE(rig.askHex(7, 1, 1, Operation::Get), ackWith(fromHex("00")));
        QCOMPARE(rig.askHex(7, 1, 3, Operation::Get), kInvalidAttribute);
    }
};

QTEST_GUILESS_MAIN(tst_SimulatorObjects)
#include "tst_SimulatorObjects.moc"
