// Fault injection does what its options say, in each direction; latency, stalls and pacing
// shape the line; a seed repeats every random choice; the frame log records both directions.

#include "SimulatorRig.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace simtest;

namespace {
const QString kAck = QStringLiteral("00 01 00");

/// Which of `count` pings, sent back to back, were answered: a string of 1 and 0 by id.
QString pingPattern(SimulatorRig& rig, int count) {
    AppSide& app = rig.app();
    const qsizetype before = app.answers.size();
    for (int i = 0; i < count; ++i) {
        app.request(0, 0, 0, Operation::Get);
    }
    QSignalSpy spy(&app, &AppSide::answered);
    while (app.answers.size() < before + count) {
        if (!spy.wait(3000)) {
            return {};
        }
    }
    QString pattern(count, QLatin1Char('?'));
    for (const auto& answer : app.answers.mid(before)) {
        pattern[answer.message.id] =
            answer.message.type == Type::AckStatus ? QLatin1Char('1') : QLatin1Char('0');
    }
    return pattern;
}
} // namespace

class tst_SimulatorLinkFaults : public QObject {
    Q_OBJECT

private slots:
    // Each direction: a request lost on the way in is never heard; an answer lost on the way
    // out was heard and handled.
    void drop_losesEveryFrameOfItsDirection_data() {
        QTest::addColumn<QString>("option");
        QTest::addColumn<bool>("heard");
        QTest::newRow("out") << QStringLiteral("--drop-out") << true;
        QTest::newRow("in") << QStringLiteral("--drop-in") << false;
    }

    void drop_losesEveryFrameOfItsDirection() {
        QFETCH(QString, option);
        QFETCH(bool, heard);
        SimulatorRig rig({option, "1"});
        QVERIFY(rig.ok());
        QCOMPARE(rig.askHex(0, 0, 2, Operation::Set, le<std::uint16_t>(1000)), QString());
        QCOMPARE(rig.sim().sessionActive(), heard);
        QCOMPARE(rig.sim().link().counters().injectedFaults, quint64{1});
    }

    void corrupt_neverYieldsTheTrueAnswer_data() {
        QTest::addColumn<QString>("option");
        QTest::newRow("out") << QStringLiteral("--corrupt-out");
        QTest::newRow("in") << QStringLiteral("--corrupt-in");
    }

    void corrupt_neverYieldsTheTrueAnswer() {
        QFETCH(QString, option);
        SimulatorRig rig({option, "1"});
        QVERIFY(rig.ok());
        for (int i = 0; i < 4; ++i) {
            QVERIFY(rig.askHex(0, 0, 1, Operation::Get) !=
                    QStringLiteral("00 01 00 03 00 01 00 00"));
        }
        QCOMPARE(rig.sim().link().counters().injectedFaults, quint64{4});
    }

    void duplicate_sendsOrHandlesTwice() {
        SimulatorRig out({"--duplicate-out", "1"});
        QVERIFY(out.ok());
        QCOMPARE(out.askHex(0, 0, 0, Operation::Get), kAck);
        QTRY_COMPARE(out.app().rawMessages.size(), 2);
        QCOMPARE(hex(out.app().rawMessages.at(1)), kAck);

        SimulatorRig in({"--duplicate-in", "1"});
        QVERIFY(in.ok());
        QCOMPARE(in.askHex(2, 1, 1, Operation::Set, QByteArray(1, 5)),
                 QStringLiteral("00 01 00 01 00 05"));
        QTRY_COMPARE(in.app().rawMessages.size(), 2);
        QCOMPARE(in.sim().model().eventLog().entries().filter("Fault: Stall").size(), 2);
    }

    void latency_delaysEveryAnswer() {
        SimulatorRig rig({"--latency", "300"});
        QVERIFY(rig.ok());
        const qint64 sentAt = rig.app().now();
        QCOMPARE(rig.askHex(0, 0, 0, Operation::Get), QString()); // too late for the request log
        QTRY_COMPARE_WITH_TIMEOUT(rig.app().rawMessages.size(), 1, 3000);
        QVERIFY(rig.app().rawTimes.first() - sentAt >= 300);
    }

    void stall_withholdsAnswersForItsSpell() {
        SimulatorRig rig({"--stall", "300", "--stall-interval", "600"});
        QVERIFY(rig.ok());
        QTRY_VERIFY_WITH_TIMEOUT(rig.sim().link().isStalled(), 2000);
        QCOMPARE(rig.askHex(0, 0, 0, Operation::Get), QString());
        QTRY_VERIFY_WITH_TIMEOUT(!rig.sim().link().isStalled(), 2000);
        QCOMPARE(rig.askHex(0, 0, 0, Operation::Get), kAck);
        QVERIFY(rig.sim().link().counters().stalledFrames >= 1);
    }

    void pace_holdsTheLineRate() {
        SimulatorRig rig({"--pace"});
        QVERIFY(rig.ok());
        const qint64 start = rig.app().now();
        constexpr int kRequests = 7;
        for (int i = 0; i < kRequests; ++i) {
            rig.app().request(1, 2, 4, Operation::Get); // the pump-head list, ~370 bytes
        }
        QTRY_VERIFY_WITH_TIMEOUT(rig.app().rawMessages.size() == kRequests, 5000);
        const double seconds = static_cast<double>(rig.app().rawTimes.last() - start) / 1000.0;
        const double bytesPerSecond = static_cast<double>(rig.app().bytesReceived) / seconds;
        qInfo("paced: %lld bytes in %.3f s = %.0f bytes/s",
              static_cast<long long>(rig.app().bytesReceived), seconds, bytesPerSecond);
        QVERIFY(rig.app().bytesReceived > 2500);
        // Never faster than the line (a busy machine may make it slower, which is not checked).
        QVERIFY2(bytesPerSecond < 11520.0 * 1.1, qPrintable(QString::number(bytesPerSecond)));
    }

    void seed_repeatsFaultsAndNoiseExactly() {
        SimulatorRig first({"--drop-out", "0.5", "--seed", "42"});
        SimulatorRig second({"--drop-out", "0.5", "--seed", "42"});
        SimulatorRig other({"--drop-out", "0.5", "--seed", "43"});
        QVERIFY(first.ok() && second.ok() && other.ok());
        const QString pattern = pingPattern(first, 16);
        QVERIFY(pattern.contains('0') && pattern.contains('1'));
        QCOMPARE(pingPattern(second, 16), pattern);
        QVERIFY(pingPattern(other, 16) != pattern);

        // The filter data's noise: the same samples in the same order.
        QList<QByteArray> samples[2];
        for (int run = 0; run < 2; ++run) {
            SimulatorRig rig({"--seed", "7"});
            QVERIFY(rig.ok());
            QVERIFY(rig.startSession());
            QCOMPARE(rig.askHex(4, 4, 5, Operation::Sub, le<std::uint16_t>(30) + QByteArray(1, 0)),
                     kAck);
            QTRY_VERIFY(rig.app().updatesOf(4, 4, 5).size() >= 5);
            for (const auto& update : rig.app().updatesOf(4, 4, 5).mid(0, 5)) {
                samples[run].append(
                    QByteArray(reinterpret_cast<const char*>(update.message.payload.data()),
                               update.message.payloadLength));
            }
        }
        QCOMPARE(samples[0], samples[1]);
        QCOMPARE(samples[0].first().size(), 16);
        QVERIFY(samples[0].at(0) != samples[0].at(1));
    }

    void frameLog_recordsBothDirectionsDecoded() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("frames.log"));
        {
            SimulatorRig rig({"--frame-log", path, "--drop-out", "1"});
            QVERIFY(rig.ok());
            QCOMPARE(rig.askHex(0, 0, 1, Operation::Get), QString());
        }
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString log = QString::fromLatin1(file.readAll());
        QVERIFY2(
            log.contains(" <- 01 01 01 01 02 01 01 01 00 | id=0 Request obj=0/0 attr=1 op=Get"),
            qPrintable(log));
        QVERIFY2(log.contains("-> ") &&
                     log.contains("AckStatus status=Success payload=01 00 00 [injected: dropped]"),
                 qPrintable(log));
    }
};

QTEST_GUILESS_MAIN(tst_SimulatorLinkFaults)
#include "tst_SimulatorLinkFaults.moc"
