// Subscriptions stream on change, stop when unsubscribed, when the session stops or the
// application falls silent, and are limited in number; a restart silences the pump. Streaming at
// a period is proven end to end by the pump values' rates.

#include "SimulatorRig.h"

#include <QTest>

using namespace simtest;

class tst_SimulatorStreaming : public QObject {
    Q_OBJECT

private slots:
    void onChange_sendsAtOnceAndUnsubscribeStops() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QVERIFY(rig.startSession());
        // Cover status on change only; prime speed every 100 ms serves as a clock.
        QCOMPARE(rig.askHex(2, 1, 7, Operation::Sub, le<std::uint16_t>(0) + QByteArray(1, 1)),
                 QStringLiteral("00 01 00"));
        QCOMPARE(rig.askHex(2, 2, 3, Operation::Sub, le<std::uint16_t>(100) + QByteArray(1, 0)),
                 QStringLiteral("00 01 00"));
        QTRY_COMPARE(rig.app().updatesOf(2, 1, 7).size(), 1); // the first value, at once
        rig.sim().model().setCoverOpen(true);
        QTRY_COMPARE(rig.app().updatesOf(2, 1, 7).size(), 2);
        QCOMPARE(rig.app().updatesOf(2, 1, 7).last().message.payload[0], std::uint8_t{1});

        QCOMPARE(rig.askHex(2, 1, 7, Operation::Unsub), QStringLiteral("00 01 00"));
        QCOMPARE(rig.askHex(2, 1, 7, Operation::Unsub), QStringLiteral("00 03 0c"));
        rig.sim().model().setCoverOpen(false);
        const auto clockTicks = rig.app().updatesOf(2, 2, 3).size();
        QTRY_VERIFY(rig.app().updatesOf(2, 2, 3).size() >= clockTicks + 3);
        QCOMPARE(rig.app().updatesOf(2, 1, 7).size(), 2);
        QVERIFY(rig.sim().model().eventLog().entries().join('|').contains("Cover opened"));
    }

    void subscriptions_limitedAndEndedWithTheSession() {
        SimulatorRig rig({"--max-subscriptions", "2"});
        QVERIFY(rig.ok());
        QVERIFY(rig.startSession());
        const QByteArray everySecond = le<std::uint16_t>(1000) + QByteArray(1, 1);
        QCOMPARE(rig.askHex(4, 1, 4, Operation::Sub, everySecond), QStringLiteral("00 01 00"));
        QCOMPARE(rig.askHex(4, 1, 3, Operation::Sub, everySecond), QStringLiteral("00 01 00"));
        QCOMPARE(rig.askHex(4, 1, 3, Operation::Sub, everySecond), QStringLiteral("00 01 00"));
        QCOMPARE(rig.askHex(4, 1, 0, Operation::Sub, everySecond), QStringLiteral("00 03 0b"));
        QCOMPARE(rig.askHex(4, 1, 0, Operation::Sub, QByteArray(1, 0)), QStringLiteral("00 03 08"));
        QCOMPARE(rig.sim().subscriptions().size(), std::size_t{2});
        QVERIFY(rig.sim().scheduler().streaming());
        QCOMPARE(rig.askHex(0, 0, 3, Operation::Set), QStringLiteral("00 01 00"));
        QCOMPARE(rig.sim().subscriptions().size(), std::size_t{0});
        QVERIFY(!rig.sim().scheduler().streaming());
    }

    void silentApplication_endsTheSession() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        // A session value of 100 ms: after 300 ms without a frame the pump gives up.
        QCOMPARE(rig.askHex(0, 0, 2, Operation::Set, le<std::uint16_t>(100)),
                 QStringLiteral("00 01 00"));
        QVERIFY(rig.sim().sessionActive());
        QTRY_VERIFY_WITH_TIMEOUT(!rig.sim().sessionActive(), 3000);
        QVERIFY(rig.sim().model().eventLog().entries().last().endsWith("Session timed out"));
    }

    void unacknowledgedUpdates_timeOutAtThePump() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QVERIFY(rig.startSession());
        rig.app().acknowledgeUpdates = false;
        QCOMPARE(rig.askHex(2, 1, 9, Operation::Sub, le<std::uint16_t>(50) + QByteArray(1, 0)),
                 QStringLiteral("00 01 00"));
        QTRY_VERIFY_WITH_TIMEOUT(rig.sim().statusText().contains("unacknowledged") &&
                                     !rig.sim().statusText().contains("(0 unacknowledged)"),
                                 3000);
    }

    void deviceReset_restartsThePumpAfterAQuietSpell() {
        SimulatorRig rig;
        QVERIFY(rig.ok());
        QVERIFY(rig.startSession());
        QCOMPARE(rig.askHex(2, 1, 3, Operation::Set, le<std::int32_t>(800)),
                 QStringLiteral("00 01 00"));
        QCOMPARE(rig.askHex(1, 1, 0, Operation::Reset), QStringLiteral("00 01 00"));
        QVERIFY(!rig.sim().sessionActive());
        QCOMPARE(rig.askHex(0, 0, 0, Operation::Get), QString()); // silent: time-out
        QElapsedTimer quiet;
        quiet.start();
        while (rig.askHex(0, 0, 0, Operation::Get).isEmpty()) {
            QVERIFY(quiet.elapsed() < 5000);
        }
        QCOMPARE(rig.askHex(2, 1, 3, Operation::Get), QStringLiteral("00 01 00 04 00 00 00 00 00"));
    }
};

QTEST_GUILESS_MAIN(tst_SimulatorStreaming)
#include "tst_SimulatorStreaming.moc"
