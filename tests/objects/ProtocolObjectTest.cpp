// The session proxy: request bytes, and its reading of answers and time-outs.
#include "TestRegistry.h"
#include "tests/support/LinkHarness.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::ProtocolObject;
using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;
using testsupport::hex;
using testsupport::LinkHarness;

namespace {

// An answer as the message layer hands it to the proxy, the request's attribute and operation
// filled in; built by hand so that a test can also give combinations the link never makes.
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
    void requests_haveTheirExactBytes() {
        LinkHarness h;
        ProtocolObject proxy(h.protocol());
        QVERIFY(proxy.RequestKeepAlive());
        QVERIFY(proxy.RequestVersion());
        QVERIFY(proxy.RequestStartSession(1000));
        QVERIFY(proxy.RequestStopSession());
        h.refuseSends(true);
        QVERIFY(!proxy.RequestKeepAlive());
        QCOMPARE(h.sentBytes(),
                 (QList<QByteArray>{hex("00 00 00 00 00 00"), hex("01 00 00 00 01 00"),
                                    hex("02 00 00 00 02 02 0200 E803"), hex("03 00 00 00 03 02")}));
    }

    void answers_andTimeouts_becomeSignals() {
        LinkHarness h;
        ProtocolObject proxy(h.protocol());
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
        LinkHarness h;
        ProtocolObject proxy(h.protocol());
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

OBJECTS_TEST(ProtocolObjectTest)

#include "ProtocolObjectTest.moc"
