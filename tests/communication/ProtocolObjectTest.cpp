// The session proxy's requests and its reading of answers and time-outs.
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"

#include <QSignalSpy>
#include <QTest>

#include <vector>

using communication::objects::ProtocolObject;
using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

namespace {

/// Keeps every message handed to it; the proxy needs nothing else of the message layer.
class RecordingProtocol final : public halyard::protocol::ProtocolInterface {
public:
    std::vector<ProtocolMessage> sent;
    bool accept = true;

    bool Send(ProtocolMessage& message) override {
        sent.push_back(message);
        return accept;
    }
    Status Receive(ProtocolMessage&) override { return Status::Success; }
    void SetPayloadOutHandler(halyard::protocol::PayloadOutHandler*) override {}
    std::size_t RegisterMessageHandler(halyard::protocol::ProtocolMessageHandler*) override {
        return 0;
    }
    Status ReceiveBytes(const std::uint8_t*, std::int32_t) override { return Status::Success; }
    void ClearRequestLog() override {}
};

ProtocolMessage answer(Type type, Status status, std::uint8_t attribute, Operation operation,
                       QByteArray payload = {}) {
    ProtocolMessage m;
    m.type = type;
    m.SetStatus(status);
    m.attribute = attribute;
    m.SetOperation(operation);
    m.payloadLength = static_cast<std::uint16_t>(payload.size());
    std::copy(payload.begin(), payload.end(), m.payload.begin());
    return m;
}

} // namespace

class ProtocolObjectTest : public QObject {
    Q_OBJECT

private slots:
    void requests_carryAttributeOperationAndPayload() {
        RecordingProtocol protocol;
        ProtocolObject proxy(protocol);
        QVERIFY(proxy.RequestKeepAlive());
        QVERIFY(proxy.RequestVersion());
        QVERIFY(proxy.RequestStartSession(1000));
        QVERIFY(proxy.RequestStopSession());
        protocol.accept = false;
        QVERIFY(!proxy.RequestKeepAlive());

        QCOMPARE(protocol.sent.size(), 5u);
        const std::vector<std::pair<int, Operation>> expected{
            {0, Operation::Get}, {1, Operation::Get}, {2, Operation::Set}, {3, Operation::Set}};
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const ProtocolMessage& m = protocol.sent[i];
            QCOMPARE(m.type, Type::Request);
            QCOMPARE(m.object, 0);
            QCOMPARE(m.instance, 0);
            QCOMPARE(int(m.attribute), expected[i].first);
            QCOMPARE(m.operation, expected[i].second);
            QCOMPARE(int(m.payloadLength), i == 2 ? 2 : 0);
        }
        QCOMPARE(protocol.sent[2].payload[0], 0xE8);
        QCOMPARE(protocol.sent[2].payload[1], 0x03);
    }

    void answers_andTimeouts_becomeSignals() {
        RecordingProtocol protocol;
        ProtocolObject proxy(protocol);
        QSignalSpy keepAlive(&proxy, &ProtocolObject::getKeepAliveResponse);
        QSignalSpy started(&proxy, &ProtocolObject::setStartSessionResponse);
        QSignalSpy stopped(&proxy, &ProtocolObject::setStopSessionResponse);
        QSignalSpy startTimeout(&proxy, &ProtocolObject::sessionStartTimeout);
        QSignalSpy keepAliveTimeout(&proxy, &ProtocolObject::keepAliveTimeout);

        // A refused ping still proves the pump is there.
        QVERIFY(proxy.Handle(answer(Type::NakStatus, Status::InvalidAttribute, 0, Operation::Get)));
        QCOMPARE(keepAlive.count(), 1);
        QVERIFY(proxy.Handle(answer(Type::AckStatus, Status::Success, 2, Operation::Set)));
        QVERIFY(proxy.Handle(answer(Type::AckStatus, Status::Success, 3, Operation::Set)));
        QCOMPARE(started.count(), 1);
        QCOMPARE(stopped.count(), 1);
        // A refused start is not an answer: only the time-outs tell.
        QVERIFY(!proxy.Handle(answer(Type::NakStatus, Status::Failed, 2, Operation::Set)));
        QCOMPARE(started.count(), 1);

        // Time-outs go by attribute, whatever the operation byte says.
        QVERIFY(
            proxy.Handle(answer(Type::NakStatus, Status::RequestAckTimeout, 2, Operation::Get)));
        QVERIFY(
            proxy.Handle(answer(Type::NakStatus, Status::RequestAckTimeout, 0, Operation::Set)));
        QVERIFY(
            proxy.Handle(answer(Type::NakStatus, Status::RequestAckTimeout, 1, Operation::Get)));
        QCOMPARE(startTimeout.count(), 1);
        QCOMPARE(keepAliveTimeout.count(), 1);
        QCOMPARE(keepAlive.count(), 1);
    }

    void versionAnswer_needsThreeBytes() {
        RecordingProtocol protocol;
        ProtocolObject proxy(protocol);
        QSignalSpy versions(&proxy, &ProtocolObject::getVersionResponse);
        QVERIFY(!proxy.Handle(answer(Type::AckStatus, Status::Success, 1, Operation::Get,
                                     QByteArray::fromHex("0207"))));
        QCOMPARE(versions.count(), 0);
        QVERIFY(proxy.Handle(answer(Type::AckStatus, Status::Success, 1, Operation::Get,
                                    QByteArray::fromHex("02070b"))));
        QCOMPARE(versions.count(), 1);
        const auto v = versions.front().front().value<halyard::SemanticVersion>();
        QCOMPARE(int(v.major), 2);
        QCOMPARE(int(v.minor), 7);
        QCOMPARE(int(v.patch), 11);
    }
};

QTEST_GUILESS_MAIN(ProtocolObjectTest)
#include "ProtocolObjectTest.moc"
