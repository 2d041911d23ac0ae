// The simulated pump's objects refuse what their attribute tables do not allow, with the status
// the protocol gives for it, and answer the layouts most easily misread byte for byte. What the
// application's proxies read and set is proven end to end against the simulator.

#include "SimulatorRig.h"

#include <QTest>

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
const QString kFailed = QStringLiteral("00 03 01");
const QString kInvalidObject = QStringLiteral("00 03 02");
const QString kInvalidInstance = QStringLiteral("00 03 03");
const QString kInvalidAttribute = QStringLiteral("00 03 04");
const QString kInvalidOperation = QStringLiteral("00 03 05");
const QString kInvalidData = QStringLiteral("00 03 08");
const QString kInvalidSubscribe = QStringLiteral("00 03 0d");

struct Refusal {
    std::uint8_t object, instance, attribute;
    Operation operation;
    QByteArray payload;
    QString status;
};

} // namespace

Q_DECLARE_METATYPE(Refusal)

class tst_SimulatorObjects : public QObject {
    Q_OBJECT

private slots:
    void refusals_data() {
        QTest::addColumn<Refusal>("refusal");
        const auto row = [](const char* name, Refusal refusal) { QTest::newRow(name) << refusal; };
        const auto profile = [](std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                                std::uint32_t e) { return le(a) + le(b) + le(c) + le(d) + le(e); };
        row("unknown object", {0x42, 0, 0, Operation::Get, {}, kInvalidObject});
        row("unknown device instance", {1, 7, 0, Operation::Get, {}, kInvalidInstance});
        row("network object of an analog pump", {6, 1, 4, Operation::Get, {}, kInvalidObject});
        row("session start of one byte", {0, 0, 2, Operation::Set, fromHex("e8"), kInvalidData});
        row("session attribute 9", {0, 0, 9, Operation::Get, {}, kInvalidAttribute});
        row("session reset", {0, 0, 1, Operation::Reset, {}, kInvalidOperation});
        row("device details by get", {1, 1, 0, Operation::Get, {}, kInvalidOperation});
        row("pump head without its NUL",
            {1, 2, 3, Operation::Set, QByteArray("BW-T13"), kInvalidData});
        row("firmware start of one byte", {1, 3, 0, Operation::Start, fromHex("00"), kInvalidData});
        row("firmware start of an empty image",
            {1, 3, 0, Operation::Start, fromHex("00 00000000 00000000"), kInvalidData});
        row("firmware start into bank 4",
            {1, 3, 0, Operation::Start, fromHex("04 00100000 00000000"), kFailed});
        row("firmware start larger than the bank",
            {1, 3, 0, Operation::Start, fromHex("00 01001000 00000000"), kFailed});
        row("firmware verify before a start", {1, 3, 0, Operation::Verify, fromHex("00"), kFailed});
        row("firmware data without a transfer",
            {1, 3, 2, Operation::Set, fromHex("00 00000000 aa"), kInvalidData});
        row("firmware get", {1, 3, 0, Operation::Get, {}, kInvalidOperation});
        row("firmware attribute 9", {1, 3, 9, Operation::Get, {}, kInvalidAttribute});
        row("subscribe to the control input",
            {2, 1, 2, Operation::Sub, fromHex("e80301"), kInvalidSubscribe});
        row("pump attribute 10", {2, 1, 10, Operation::Get, {}, kInvalidAttribute});
        row("pump verify", {2, 1, 3, Operation::Verify, {}, kInvalidOperation});
        row("prime input set", {2, 2, 1, Operation::Set, fromHex("01"), kInvalidAttribute});
        row("subscribe to the encoder",
            {3, 1, 4, Operation::Sub, fromHex("e80301"), kInvalidSubscribe});
        row("analog attribute 8", {4, 1, 8, Operation::Get, {}, kInvalidAttribute});
        row("analog set", {4, 1, 0, Operation::Set, le(1.0F), kInvalidOperation});
        row("calibration of one float", {4, 3, 2, Operation::Set, le(2.0F), kInvalidData});
        row("calibration channel 3", {4, 3, 3, Operation::Get, {}, kInvalidAttribute});
        row("subscribe to the filter limits",
            {4, 4, 4, Operation::Sub, fromHex("1e0000"), kInvalidSubscribe});
        row("speed range upside down",
            {5, 1, 5, Operation::Set, profile(2000, 1000, 0, 10000, 10), kInvalidData});
        row("set-default of range limits", {5, 1, 2, Operation::SetDef, {}, kInvalidAttribute});
        row("logger attribute 3", {7, 1, 3, Operation::Get, {}, kInvalidAttribute});
    }

    void refusals() {
        QFETCH(Refusal, refusal);
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(refusal.object, refusal.instance, refusal.attribute, refusal.operation,
                            refusal.payload),
                 refusal.status);
    }

    void defaultIdentity_andPumpHeadRows() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        // Stepper analog (1), firmware 1.16.1.
        QCOMPARE(rig.askHex(1, 1, 0, Operation::GetAll), ackWith(fromHex("01011001")));
        QByteArray details = fromHex("010300");
        details += QByteArray("SIM-000001", 11) + QByteArray("BWD-100-SIM", 12);
        details += fromHex("0001");
        QCOMPARE(rig.askHex(1, 2, 0, Operation::GetAll), ackWith(details));
        // Rows of name with its NUL, rated speed in drpm, then the BLDC and stepper flags, in
        // the head numbering: "None" first, fitting either motor; a BLDC-only head last.
        const QByteArray heads = rig.ask(1, 2, 4, Operation::Get);
        const QByteArray firstRow = QByteArray("None", 5) + le<std::uint32_t>(0) + fromHex("0101");
        const QByteArray lastRow =
            QByteArray("BW-X36", 7) + le<std::uint32_t>(1650) + fromHex("0100");
        QCOMPARE(hex(heads.mid(5, firstRow.size())), hex(firstRow));
        QCOMPARE(hex(heads.right(lastRow.size())), hex(lastRow));
    }

    // A BLDC network pump: device type 8, the network flag without the stepper's, no stepper
    // drive.
    void bldcNetworkPump_saysSoAndHasNoStepperDrive() {
        SimulatorRig rig({"--variant", "network", "--motor", "bldc"});
        QVERIFY(rig.ok());
        QCOMPARE(hex(rig.ask(1, 1, 0, Operation::GetAll).mid(5, 1)), QStringLiteral("08"));
        QCOMPARE(hex(rig.ask(1, 2, 0, Operation::GetAll).right(2)), QStringLiteral("01 00"));
        QCOMPARE(rig.askHex(3, 2, 5, Operation::Get), kInvalidInstance);
    }

    // The protocol's only big-endian fields; a short set is refused and the set-default restores
    // the configuration.
    void networkPump_ipConfiguration() {
        SimulatorRig rig({"--variant", "network"});
        QVERIFY(rig.ok());
        const QString defaults = ackWith(fromHex("00c0a8000affffff00c0a80001"));
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get), defaults);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Set, fromHex("010a000005ff0000000a00000101")),
                 kAck);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get),
                 ackWith(fromHex("010a000005ff0000000a000001")));
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Set, fromHex("010a0000")), kInvalidData);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::SetDef), kAck);
        QCOMPARE(rig.askHex(6, 1, 4, Operation::Get), defaults);
    }
};

QTEST_GUILESS_MAIN(tst_SimulatorObjects)
#include "tst_SimulatorObjects.moc"
