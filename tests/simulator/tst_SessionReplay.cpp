// Session recordings end to end: the application's link records a short session with the real
// pump simulator, the simulator replays the recording's pump side, and the application connects
// to the replay and hears what the recorded pump said. Also the replay script's reading of a
// recording, on a small one written by hand.
#include "tests/support/SimulatorProcess.h"
#include "tools/pump-simulator/ReplayScript.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Model/PumpSession.h"

#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>

using namespace communication;
using objects::MotorObject;
using simulator::ReplayScript;
using testsupport::SimulatorProcess;

namespace {

constexpr int kConnectMs = 8000;
constexpr int kUpdatesHeard = 5;

// The application's link and pump session on their own comms thread, as start-up builds them,
// scanning only the simulator's port; the test thread hears the session's reports.
class AppLink {
public:
    explicit AppLink(const QString& port)
        : mComms(new ProtocolComms(mRequestLog))
        , mSession(new PumpSession(*mComms, {port}, mComms)) {
        QObject::connect(mSession, &PumpSession::pumpConnectionChanged, mSession,
                         [this](bool up) { connected = up; });
        QObject::connect(mSession, &PumpSession::protocolVersionChanged, mSession,
                         [this](halyard::SemanticVersion version) {
                             protocolVersion =
                                 version.major * 10000 + version.minor * 100 + version.patch;
                         });
        MotorObject& motor = mComms->protocolObjects().get<MotorObject>();
        QObject::connect(&motor, &MotorObject::updateActualSpeed, mSession,
                         [this](int32_t) { ++speedUpdates; });
        auto& protocol = mComms->protocolObjects().get<objects::ProtocolObject>();
        QObject::connect(&protocol, &objects::ProtocolObject::getKeepAliveResponse, mSession,
                         [this] { ++pingsAnswered; });
        mThread.setObjectName(QStringLiteral("ProtocolCommsThread"));
        mComms->moveToThread(&mThread);
        mThread.start();
    }
    ~AppLink() {
        run([this] { mComms->deleteLater(); });
        mThread.quit();
        mThread.wait();
    }
    AppLink(const AppLink&) = delete;
    AppLink& operator=(const AppLink&) = delete;

    template <typename Function>
    void run(Function function) {
        QMetaObject::invokeMethod(mComms, function, Qt::BlockingQueuedConnection);
    }
    ProtocolComms& comms() { return *mComms; }
    PumpSession& session() { return *mSession; }
    void subscribeActualSpeed() {
        run([this] {
            mComms->protocolObjects().get<MotorObject>().Subscribe(MotorObject::ActualSpeed, 100,
                                                                   false);
        });
    }

    std::atomic<bool> connected{false};
    std::atomic<int> protocolVersion{0};
    std::atomic<int> speedUpdates{0};
    std::atomic<int> pingsAnswered{0};

private:
    ProtocolRequestLogWrapper mRequestLog;
    ProtocolComms* mComms;
    PumpSession* mSession;
    QThread mThread;
};

} // namespace

class SessionReplayTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { objects::registerProtocolObjectMetaTypes(); }
    void recordedSession_replaysAndTheApplicationConnectsToIt();
    void script_keysAnswersByRequestAndFramesBySession();
};

void SessionReplayTest::recordedSession_replaysAndTheApplicationConnectsToIt() {
    const QTemporaryDir folder;
    const QString recording = folder.filePath(QStringLiteral("field.bwrec"));
    {
        // The field: a pump with an unusual protocol version, streaming its speed.
        SimulatorProcess pump;
        const QString port =
            pump.start({QStringLiteral("--pty"), QStringLiteral("--no-console"),
                        QStringLiteral("--protocol-version"), QStringLiteral("3.1.4"),
                        QStringLiteral("--seed"), QStringLiteral("3")});
        QVERIFY(!port.isEmpty());
        AppLink app(port);
        bool started = false;
        app.run([&] { started = app.comms().startRecording(recording); });
        QVERIFY(started);
        app.run([&] { app.session().startScanning(); });
        QTRY_VERIFY_WITH_TIMEOUT(app.connected, kConnectMs);
        app.subscribeActualSpeed();
        QTRY_VERIFY_WITH_TIMEOUT(app.speedUpdates >= kUpdatesHeard, 3000);
        // Long enough for the keep-alive: a ping the recording never saw would go unanswered.
        QTRY_VERIFY_WITH_TIMEOUT(app.pingsAnswered >= 1, 3000);
        app.run([&] { app.comms().stopRecording(); });
        QCOMPARE(app.protocolVersion.load(), 30104);
    }

    // The desk: the replay, which simulates nothing of its own (its version would be 1.0.0).
    SimulatorProcess replay;
    replay.process().setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString port = replay.start({QStringLiteral("--pty"), QStringLiteral("--no-console"),
                                       QStringLiteral("--replay"), recording});
    QVERIFY(!port.isEmpty());
    AppLink app(port);
    app.run([&] { app.session().startScanning(); });
    QTRY_VERIFY_WITH_TIMEOUT(app.connected, kConnectMs);
    QCOMPARE(app.protocolVersion.load(), 30104);
    app.subscribeActualSpeed();
    QTRY_VERIFY_WITH_TIMEOUT(app.speedUpdates >= kUpdatesHeard, 3000);
    // The session stays up on the replay's answers to the pings, past the recorded ones.
    QTRY_VERIFY_WITH_TIMEOUT(app.pingsAnswered >= 3, 5000);
    QVERIFY(app.connected);
}

void SessionReplayTest::script_keysAnswersByRequestAndFramesBySession() {
    const QByteArray recording = "# Brackwater Link session recording 1\n"
                                 "# started 2025-06-01T10:15:30.123Z\n"
                                 "0 open COM3\n"
                                 "10 tx 00 00 00 00 01 00 | id=0 Request 0/0 attr=1 Get\n"
                                 "12 rx 00 01 00 03 00 01 00 00\n"
                                 "20 tx 01 00 00 00 02 02 02 00 e8 03\n"
                                 "23 rx 01 01 00\n"
                                 "30 tx 00 00 00 00 00 00\n" // a ping the pump ignores
                                 "130 timeout 0\n"
                                 "130 tx 00 00 00 00 00 00\n" // its retry, answered
                                 "135 rx 00 01 00\n"
                                 "140 rx 09 00 03 01 03 08 04 00 d2 04 00 00\n"
                                 "141 tx 09 01 00\n"
                                 "150 rx-malformed\n"
                                 "160 some-later-event 1 2 3\n";
    QString error;
    const auto script = ReplayScript::parse(recording, error);
    QVERIFY2(script, qPrintable(error));

    const auto* version = script->answersTo(QByteArray::fromHex("0000000100"));
    QVERIFY(version != nullptr);
    QCOMPARE(version->size(), 1);
    QCOMPARE(version->front().frames.front().delayMs, 2);
    QCOMPARE(version->front().frames.front().message, QByteArray::fromHex("0001000300010000"));
    // The ping: first left unanswered, then answered.
    const auto* ping = script->answersTo(QByteArray::fromHex("0000000000"));
    QVERIFY(ping != nullptr);
    QCOMPARE(ping->size(), 2);
    QVERIFY(ping->at(0).frames.isEmpty());
    QCOMPARE(ping->at(1).frames.size(), 1);
    // A start with another payload finds the recorded start by its address.
    QVERIFY(script->answersTo(QByteArray::fromHex("00000002020200d007")) == nullptr);
    QCOMPARE(script->answersToAddress(QByteArray::fromHex("00000002020200d007"))->size(), 1);
    // The session's own frames, timed from its start: the update and the damaged frame.
    QCOMPARE(script->sessions().size(), 1);
    const auto& frames = script->sessions().front().frames;
    QCOMPARE(frames.size(), 2);
    QCOMPARE(frames[0].delayMs, 120);
    QCOMPARE(frames[1].delayMs, 130);
    QVERIFY(frames[1].message.isEmpty());

    QVERIFY(!ReplayScript::parse("0 tx 00 00\n", error));
    QVERIFY(error.contains(QStringLiteral("not a session recording")));
    QVERIFY(!ReplayScript::parse("# Brackwater Link session recording 1\n5 tx 0g\n", error));
    QVERIFY(error.contains(QStringLiteral("line 2")));
}

QTEST_GUILESS_MAIN(SessionReplayTest)
#include "tst_SessionReplay.moc"
