// The link's health and its session recording, on the real comms object over a real
// pseudo-terminal with the test as the pump: what the counters, the once-a-second figures and the
// recording make of frames, time-outs, retries and damage the test sends on purpose; and what the
// controller makes of the figures.
#include "tests/support/PumpLine.h"

#include "QtApps/Common/Controllers/LinkStatsController.h"
#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"

#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace communication;
using halyard::protocol::ProtocolMessage;
using testsupport::PumpLine;
namespace message = halyard::protocol::message;

namespace {

constexpr int kPings = 5;

// The pump's end: it answers keep-alive pings unless told to stay silent for some.
struct Pump {
    PumpLine line;
    int silentPings = 0;

    Pump() {
        line.setResponder([this](PumpLine& pumpLine, const ProtocolMessage& request) {
            if (request.type != message::Type::Request) {
                return;
            }
            if (silentPings > 0) {
                --silentPings;
                return;
            }
            pumpLine.send(
                PumpLine::answer(request, message::Type::AckStatus, message::Status::Success));
        });
    }
};

// The figures of the next once-a-second snapshot.
LinkStatsSnapshot nextSnapshot(ProtocolComms& comms) {
    QSignalSpy published(&comms.linkMonitor(), &LinkMonitor::statsUpdated);
    if (!published.wait(3000)) {
        return {};
    }
    return published.takeLast().at(0).value<LinkStatsSnapshot>();
}

ProtocolMessage ping(std::uint8_t id) {
    ProtocolMessage request;
    request.id = id;
    request.type = message::Type::Request;
    request.SetOperation(message::Operation::Get);
    return request;
}

} // namespace

class LinkHealthTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void counters_countAKnownExchangeByteForByte();
    void counters_countTimeoutsRetriesAndDamagedFrames();
    void recorder_writesEveryEventInTheDocumentedForm();
    void controller_healthFollowsTheLineProblemsOfTheMinute_data();
    void controller_healthFollowsTheLineProblemsOfTheMinute();
};

void LinkHealthTest::initTestCase() {
    RegisterMetaTypes();
    QStandardPaths::setTestModeEnabled(true);
}

void LinkHealthTest::counters_countAKnownExchangeByteForByte() {
    Pump pump;
    ProtocolRequestLogWrapper log;
    ProtocolComms comms(log);
    auto& protocol = comms.protocolObjects().get<objects::ProtocolObject>();
    QSignalSpy answered(&protocol, &objects::ProtocolObject::getKeepAliveResponse);
    QVERIFY(comms.openPort(pump.line.portName()));
    nextSnapshot(comms); // a second boundary: what follows falls into fresh counts

    for (int i = 0; i < kPings; ++i) {
        QVERIFY(protocol.RequestKeepAlive());
        QTRY_COMPARE(answered.count(), i + 1);
    }
    const LinkStatsSnapshot stats = nextSnapshot(comms);

    // Each ping is the same six-byte request and each answer a three-byte acknowledge, framed.
    const auto pingFrame = static_cast<std::uint64_t>(PumpLine::frame(ping(0)).size());
    const auto answerFrame = static_cast<std::uint64_t>(
        PumpLine::frame(
            PumpLine::answer(ping(0), message::Type::AckStatus, message::Status::Success))
            .size());
    QCOMPARE(stats.lastMinute.framesOut, std::uint64_t{kPings});
    QCOMPARE(stats.lastMinute.framesIn, std::uint64_t{kPings});
    QCOMPARE(stats.lastMinute.bytesOut, kPings * pingFrame);
    QCOMPARE(stats.lastMinute.bytesIn, kPings * answerFrame);
    QCOMPARE(stats.lastMinute.pings, std::uint32_t{kPings});
    QVERIFY(stats.lastMinute.pingWorstMs < 100);
    QVERIFY(stats.lastPingMs >= 0);
    QCOMPARE(stats.lastMinute.errors(), std::uint32_t{0});
    QCOMPARE(stats.lastMinute.timeouts, std::uint32_t{0});
    QVERIFY(stats.portOpen);
    QVERIFY(pump.line.portName().endsWith(stats.portName));
}

void LinkHealthTest::counters_countTimeoutsRetriesAndDamagedFrames() {
    Pump pump;
    ProtocolRequestLogWrapper log;
    ProtocolComms comms(log);
    auto& protocol = comms.protocolObjects().get<objects::ProtocolObject>();
    // The session's rule: a ping that timed out is sent again at once.
    connect(&protocol, &objects::ProtocolObject::keepAliveTimeout, &protocol,
            [&protocol] { protocol.RequestKeepAlive(); });
    QSignalSpy answered(&protocol, &objects::ProtocolObject::getKeepAliveResponse);
    QSignalSpy timedOut(&protocol, &objects::ProtocolObject::keepAliveTimeout);
    QSignalSpy transportErrors(&comms, &ProtocolComms::transportError);
    QSignalSpy protocolErrors(&comms, &ProtocolComms::protocolError);
    QVERIFY(comms.openPort(pump.line.portName()));

    // Two pings lost: two time-outs, two retries, and the third attempt answered.
    pump.silentPings = 2;
    QVERIFY(protocol.RequestKeepAlive());
    QTRY_COMPARE_WITH_TIMEOUT(answered.count(), 1, 2000);
    QCOMPARE(timedOut.count(), 2);

    // A frame that does not decode, and an answer to a request nobody sent.
    QVERIFY(pump.line.pty().write(QByteArray::fromHex("0511220100")));
    QTRY_COMPARE(transportErrors.count(), 1);
    QVERIFY(pump.line.send(
        PumpLine::answer(ping(77), message::Type::AckStatus, message::Status::Success)));
    QTRY_COMPARE(protocolErrors.count(), 2); // the damaged frame's InvalidMessage, then this
    const LinkStatsSnapshot stats = nextSnapshot(comms);

    QCOMPARE(stats.lastMinute.timeouts, std::uint32_t{2});
    QCOMPARE(stats.lastMinute.retries, std::uint32_t{2});
    QCOMPARE(stats.lastMinute.framesOut, std::uint64_t{3});
    QCOMPARE(stats.lastMinute.pings, std::uint32_t{1});
    QCOMPARE(
        stats.lastMinute.transportErrors[static_cast<std::size_t>(TransportError::MalformedFrame)],
        std::uint32_t{1});
    QCOMPARE(stats.lastMinute.protocolErrors[ProtocolErrorIndex(message::Status::InvalidMessageId)],
             std::uint32_t{1});
    QCOMPARE(stats.lastMinute.errors(), std::uint32_t{2});
    QCOMPARE(protocolErrors.at(1).at(0).value<message::Status>(),
             message::Status::InvalidMessageId);
}

void LinkHealthTest::recorder_writesEveryEventInTheDocumentedForm() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("session.bwrec"));
    Pump pump;
    ProtocolRequestLogWrapper log;
    ProtocolComms comms(log);
    auto& protocol = comms.protocolObjects().get<objects::ProtocolObject>();
    QSignalSpy answered(&protocol, &objects::ProtocolObject::getKeepAliveResponse);
    QSignalSpy timedOut(&protocol, &objects::ProtocolObject::keepAliveTimeout);

    QVERIFY(!comms.startRecording(folder.filePath(QStringLiteral("no/such/folder/x.bwrec"))));
    QVERIFY(!comms.recorder().lastError().isEmpty());
    QVERIFY(comms.startRecording(path));
    QVERIFY(comms.openPort(pump.line.portName()));
    QVERIFY(protocol.RequestKeepAlive());
    QTRY_COMPARE(answered.count(), 1);
    pump.silentPings = 1;
    QVERIFY(protocol.RequestKeepAlive());
    QTRY_COMPARE_WITH_TIMEOUT(timedOut.count(), 1, 1000);
    QVERIFY(pump.line.pty().write(QByteArray::fromHex("0511220100")));
    QTRY_COMPARE(comms.recorder().eventsWritten(), quint64{6});
    comms.closePort();
    comms.stopRecording();

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QVERIFY(lines.value(0).startsWith("# Brackwater Link session recording 1"));
    QVERIFY(lines.value(2).startsWith("# started "));
    // "<ms> <event> [arguments] [| reading aid]", the reading aid left aside.
    QStringList events;
    for (const QByteArray& line : lines.mid(3)) {
        if (line.isEmpty()) {
            continue;
        }
        const QList<QByteArray> fields = line.split('|').front().trimmed().split(' ');
        bool isTime = false;
        fields.front().toLongLong(&isTime);
        QVERIFY2(isTime, line.constData());
        events << QString::fromLatin1(fields.mid(1).join(' '));
    }
    const QStringList expected{
        QStringLiteral("open ") + pump.line.portName(),
        QStringLiteral("tx 00 00 00 00 00 00"),
        QStringLiteral("rx 00 01 00"),
        QStringLiteral("tx 00 00 00 00 00 00"),
        QStringLiteral("timeout 0"),
        QStringLiteral("rx-malformed"),
        QStringLiteral("close"),
    };
    QCOMPARE(events, expected);
    QVERIFY(lines.value(4).contains("| id=0 Request 0/0 attr=0 Get"));
    QVERIFY(lines.value(5).contains("| id=0 AckStatus Success for 0/0 attr=0 Get"));
}

void LinkHealthTest::controller_healthFollowsTheLineProblemsOfTheMinute_data() {
    QTest::addColumn<std::uint64_t>("frames");
    QTest::addColumn<std::uint32_t>("timeouts");
    QTest::addColumn<std::uint32_t>("malformed");
    QTest::addColumn<std::uint32_t>("declined");
    QTest::addColumn<QString>("health");
    QTest::addColumn<int>("lineProblems");

    QTest::newRow("clean") << std::uint64_t{1000} << 0u << 0u << 0u << QStringLiteral("ok") << 0;
    QTest::newRow("declined messages are the software's")
        << std::uint64_t{1000} << 0u << 0u << 5u << QStringLiteral("ok") << 0;
    QTest::newRow("one time-out") << std::uint64_t{1000} << 1u << 0u << 0u
                                  << QStringLiteral("warning") << 1;
    QTest::newRow("two in a quiet minute stay a warning")
        << std::uint64_t{10} << 1u << 1u << 0u << QStringLiteral("warning") << 2;
    QTest::newRow("below one percent")
        << std::uint64_t{1000} << 4u << 5u << 0u << QStringLiteral("warning") << 9;
    QTest::newRow("one percent") << std::uint64_t{1000} << 4u << 6u << 0u << QStringLiteral("error")
                                 << 10;
}

void LinkHealthTest::controller_healthFollowsTheLineProblemsOfTheMinute() {
    QFETCH(std::uint64_t, frames);
    QFETCH(std::uint32_t, timeouts);
    QFETCH(std::uint32_t, malformed);
    QFETCH(std::uint32_t, declined);
    QFETCH(QString, health);
    QFETCH(int, lineProblems);

    ProtocolRequestLogWrapper log;
    ProtocolComms comms(log);
    LinkStatsController controller(comms);
    QSignalSpy changed(&controller, &LinkStatsController::statsChanged);
    LinkStatsSnapshot snapshot;
    snapshot.lastMinute.framesIn = frames / 2;
    snapshot.lastMinute.framesOut = frames - frames / 2;
    snapshot.lastMinute.timeouts = timeouts;
    snapshot.lastMinute.transportErrors[static_cast<std::size_t>(TransportError::MalformedFrame)] =
        malformed;
    snapshot.lastMinute.protocolErrors[ProtocolErrorIndex(message::Status::Failed)] = declined;
    emit comms.linkMonitor().statsUpdated(snapshot);
    QTRY_COMPARE(changed.count(), 1);

    QCOMPARE(controller.health(), health);
    QCOMPARE(controller.lineProblemsPerMinute(), lineProblems);
    QCOMPARE(controller.errorsPerMinute(), static_cast<int>(malformed + declined));
    QCOMPARE(controller.errorKinds().size(), (malformed > 0 ? 1 : 0) + (declined > 0 ? 1 : 0));
    QVERIFY(std::isnan(controller.pingMeanMs()));
}

QTEST_MAIN(LinkHealthTest)
#include "tst_LinkHealth.moc"
