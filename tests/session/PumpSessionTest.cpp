// The pump session against a pump played by the test on real pseudo-terminals.
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "tests/support/LogCapture.h"
#include "tests/support/PumpLine.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <unistd.h>

using communication::ProtocolComms;
using communication::ProtocolRequestLogWrapper;
using communication::PumpSession;
using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;
using testsupport::PumpLine;

namespace {

enum Attribute : std::uint8_t { KeepAlive = 0, Version = 1, Start = 2, Stop = 3 };

/// A well-behaved pump unless told to keep quiet about some attributes (or to answer the
/// version late).
struct PumpBehaviour {
    QSet<int> silentOn;
    int versionDelayMs = 0;

    PumpLine::Responder responder() {
        return [this](PumpLine& line, const ProtocolMessage& request) {
            if (request.object != 0 || silentOn.contains(request.attribute)) {
                return;
            }
            QByteArray payload;
            if (request.attribute == Version) {
                payload = QByteArray::fromHex("010203");
            }
            const ProtocolMessage reply =
                PumpLine::answer(request, Type::AckStatus, Status::Success, payload);
            if (request.attribute == Version && versionDelayMs > 0) {
                QTimer::singleShot(versionDelayMs, &line, [&line, reply] { line.send(reply); });
            } else {
                line.send(reply);
            }
        };
    }
};

int requests(const PumpLine& pump, Attribute attribute) {
    return pump.countRequests(
        0, 0, attribute, attribute == Start || attribute == Stop ? Operation::Set : Operation::Get);
}

} // namespace

class PumpSessionTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<testsupport::LogCapture> mLog;
    std::unique_ptr<ProtocolRequestLogWrapper> mRequestLog;
    std::unique_ptr<ProtocolComms> mComms;
    std::unique_ptr<PumpSession> mSession;
    QStringList mStatuses;

    void makeSession(const QStringList& ports) {
        mRequestLog = std::make_unique<ProtocolRequestLogWrapper>();
        mComms = std::make_unique<ProtocolComms>(*mRequestLog);
        mSession = std::make_unique<PumpSession>(*mComms, ports);
        connect(mSession.get(), &PumpSession::pumpConnectionStatus, this,
                [this](const QString& s) { mStatuses << s; });
    }

private slots:
    void initTestCase() { communication::RegisterMetaTypes(); }
    void init() {
        mLog = std::make_unique<testsupport::LogCapture>();
        mStatuses.clear();
    }
    void cleanup() {
        mSession.reset();
        mComms.reset();
        mRequestLog.reset();
        mLog.reset();
    }

    void scan_rotatesOverNamedPortsInOrder() {
        PumpLine first;
        PumpLine second;
        QStringList probed;
        connect(&first, &PumpLine::messageReceived, this, [&] { probed << "first"; });
        connect(&second, &PumpLine::messageReceived, this, [&] { probed << "second"; });
        makeSession({first.portName(), "/dev/no-such-port", second.portName()});
        QVERIFY(!mSession->isConnected());
        mSession->startScanning();
        QCOMPARE(mStatuses, QStringList{"Scanning..."});
        QTRY_COMPARE_WITH_TIMEOUT(probed.size(), 3, 3000);
        QCOMPARE(probed, (QStringList{"first", "second", "first"}));
        QVERIFY(mLog->contains(first.portName().mid(5) + "response timeout"));
        QVERIFY(first.received().front().attribute == Version);
        mSession->stopScanning();
        QCOMPARE(mStatuses.last(), QStringLiteral("Disconnected."));
    }

    void probe_startsSession_thenPingsEverySecond() {
        PumpLine pump;
        PumpBehaviour behaviour;
        pump.setResponder(behaviour.responder());
        makeSession({pump.portName()});
        QSignalSpy connected(mSession.get(), &PumpSession::pumpConnectionChanged);
        QSignalSpy versions(mSession.get(), &PumpSession::protocolVersionChanged);
        mSession->startScanning();
        QTRY_COMPARE(connected.count(), 1);
        QCOMPARE(connected.front().front().toBool(), true);
        QCOMPARE(mStatuses, (QStringList{"Scanning...", "Connected."}));
        QCOMPARE(versions.count(), 1);
        QCOMPARE(mSession->versionText(), QStringLiteral("Protocol v1.2.3"));
        QVERIFY(mLog->contains(QStringLiteral("Protocol v1.2.3 received after")));

        const ProtocolMessage& start = pump.received().at(1);
        QCOMPARE(int(start.attribute), int(Start));
        QCOMPARE(int(start.payloadLength), 2);
        QCOMPARE(start.payload[0], 0xE8);
        QCOMPARE(start.payload[1], 0x03);

        QTRY_COMPARE_WITH_TIMEOUT(requests(pump, KeepAlive), 2, 2600);
        QCOMPARE(requests(pump, Version), 1);
        QVERIFY(mSession->isConnected());
    }

    void threeMissedPings_rescanAndReconnect() {
        PumpLine pump;
        PumpBehaviour behaviour;
        pump.setResponder(behaviour.responder());
        makeSession({pump.portName()});
        QSignalSpy connected(mSession.get(), &PumpSession::pumpConnectionChanged);
        mSession->startScanning();
        QTRY_COMPARE(connected.count(), 1);

        behaviour.silentOn = {KeepAlive, Version};
        QTRY_COMPARE_WITH_TIMEOUT(connected.count(), 2, 3000);
        QCOMPARE(connected.last().front().toBool(), false);
        QCOMPARE(mLog->count("keepAliveTimeout, no response, retrying"), 2);
        QCOMPARE(mLog->count("keepAliveTimeout, no response, disconnecting"), 1);
        QCOMPARE(mStatuses.mid(2), (QStringList{"Disconnected.", "Scanning..."}));
        const int pings = requests(pump, KeepAlive);
        QVERIFY(pings >= 3);

        behaviour.silentOn.clear();
        QTRY_COMPARE_WITH_TIMEOUT(connected.count(), 3, 3000);
        QCOMPARE(connected.last().front().toBool(), true);
        QCOMPARE(requests(pump, Start), 2);
    }

    void unansweredStart_givesUpAfterThirdTry() {
        PumpLine pump;
        PumpBehaviour behaviour;
        behaviour.silentOn = {Start};
        pump.setResponder(behaviour.responder());
        makeSession({pump.portName()});
        mSession->startScanning();
        QTRY_VERIFY(mLog->contains("sessionStartTimeout, no response, disconnecting"));
        QCOMPARE(requests(pump, Start), 3);
        QCOMPARE(mLog->count("sessionStartTimeout, no response, retrying"), 2);
        QCOMPARE(mStatuses.last(), QStringLiteral("Scanning..."));
        QVERIFY(!mSession->isConnected());
    }

    void disconnectPump_stopsSessionThenScansAgain() {
        PumpLine pump;
        PumpBehaviour behaviour;
        pump.setResponder(behaviour.responder());
        makeSession({pump.portName()});
        mSession->disconnectPump(); // not connected: nothing is sent
        QSignalSpy connected(mSession.get(), &PumpSession::pumpConnectionChanged);
        mSession->startScanning();
        QTRY_COMPARE(connected.count(), 1);
        QCOMPARE(requests(pump, Stop), 0);

        behaviour.silentOn = {Version};
        mSession->disconnectPump();
        QTRY_COMPARE(connected.count(), 2);
        QCOMPARE(requests(pump, Stop), 1);
        QVERIFY(mLog->contains("protocolObject_SessionStopped"));
        QCOMPARE(mStatuses.mid(2), (QStringList{"Disconnected.", "Scanning..."}));
    }

    // The port closes when a probe gives up, so a late answer is read when the port is next
    // opened, where it answers that probe's request at once.
    void lateVersionAnswer_timesOutThatProbe_andServesTheNext() {
        PumpLine pump;
        PumpBehaviour behaviour;
        behaviour.versionDelayMs = 300;
        pump.setResponder(behaviour.responder());
        makeSession({pump.portName()});
        QSignalSpy versions(mSession.get(), &PumpSession::protocolVersionChanged);
        QSignalSpy connected(mSession.get(), &PumpSession::pumpConnectionChanged);
        mSession->startScanning();
        QTRY_VERIFY(mLog->contains("response timeout"));
        QCOMPARE(versions.count(), 0);
        QTRY_COMPARE(connected.count(), 1);
        QCOMPARE(versions.count(), 1);
        QCOMPARE(requests(pump, Version), 2);
    }

    void garbageOnTheLine_isLoggedAndScanGoesOn() {
        PumpLine pump;
        makeSession({pump.portName()});
        connect(&pump, &PumpLine::messageReceived, this,
                [&pump] { pump.pty().write(QByteArray::fromHex("05110100ffff0100")); });
        mSession->startScanning();
        QTRY_VERIFY(mLog->contains("Transport error:Receive transport error"));
        QTRY_VERIFY(mLog->contains("Protocol error InvalidMessage"));
        QTRY_COMPARE_WITH_TIMEOUT(requests(pump, Version), 2, 2000);
        QVERIFY(!mSession->isConnected());
    }

    // The port is a link that does not exist yet, as udev makes one when an adapter is plugged
    // in: the reason is reported once however many rounds fail, and goes when the pump connects.
    void portProblem_isReportedOnceAndGoesWhenThePortOpens() {
        PumpLine pump;
        PumpBehaviour behaviour;
        pump.setResponder(behaviour.responder());
        QTemporaryDir folder;
        const QString link = folder.filePath(QStringLiteral("ttyPump"));
        makeSession({link});
        QSignalSpy failures(mComms.get(), &ProtocolComms::portOpenFailed);
        QSignalSpy problems(mSession.get(), &PumpSession::portProblemChanged);
        mSession->startScanning();
        QTRY_COMPARE(failures.count(), 2);
        QCOMPARE(problems.count(), 1);
        QCOMPARE(problems.front().front().toString(),
                 QStringLiteral("Cannot open %1: there is no such port. Is the pump plugged in?")
                     .arg(link));
        QVERIFY(mLog->contains(QStringLiteral("Cannot open %1").arg(link)));

        QVERIFY(QFile::link(pump.portName(), link));
        QTRY_VERIFY(mSession->isConnected());
        QCOMPARE(problems.count(), 2);
        QCOMPARE(problems.last().front().toString(), QString());
    }

    void portProblem_givesTheCommandForADeviceTheUserMayNotOpen() {
        if (geteuid() == 0) {
            QSKIP("root opens any device; ProtocolCommsTest covers how a refused open is sorted");
        }
        PumpLine pump;
        QVERIFY(QFile::setPermissions(pump.portName(), QFileDevice::Permissions()));
        makeSession({pump.portName()});
        QSignalSpy problems(mSession.get(), &PumpSession::portProblemChanged);
        mSession->startScanning();
        QTRY_COMPARE(problems.count(), 1);
        QVERIFY(problems.front().front().toString().contains(QStringLiteral("permission denied")));
        QVERIFY(problems.front().front().toString().contains(
            QStringLiteral("sudo usermod -aG dialout $USER")));
    }
};

QTEST_GUILESS_MAIN(PumpSessionTest)
#include "PumpSessionTest.moc"
