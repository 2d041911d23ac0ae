// The receive path and the port life of the comms object, over a real pseudo-terminal.
#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/PortOpenFailure.h"
#include "tests/support/PumpLine.h"

#include <QSignalSpy>
#include <QTest>

using communication::PortOpenFailure;

Q_DECLARE_METATYPE(communication::PortOpenFailure)
using communication::ProtocolComms;
using communication::ProtocolRequestLogWrapper;
using communication::objects::ProtocolObject;
using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;
using testsupport::PumpLine;

namespace {

// A request from the pump to the application's protocol object. Operation Get reaches the
// proxy's answer handling whatever the type, which makes it a handy probe of the dispatch order.
ProtocolMessage pumpGet(std::uint8_t attribute, QByteArray payload = {}) {
    ProtocolMessage m;
    m.type = Type::Request;
    m.object = 0;
    m.instance = 0;
    m.attribute = attribute;
    m.SetOperation(Operation::Get);
    m.payloadLength = static_cast<std::uint16_t>(payload.size());
    std::copy(payload.begin(), payload.end(), m.payload.begin());
    return m;
}

QByteArray version(int major, int minor, int patch) {
    return QByteArray{1, static_cast<char>(major)} + char(minor) + char(patch);
}

// COBS code 5 promises four data bytes and the frame ends after one.
const QByteArray kCorruptFrame = QByteArray::fromHex("05110100");

} // namespace

class ProtocolCommsTest : public QObject {
    Q_OBJECT

private:
    ProtocolRequestLogWrapper mLog;
    std::unique_ptr<ProtocolComms> mComms;
    std::unique_ptr<PumpLine> mPump;
    QStringList mEvents;

    ProtocolObject& proxy() { return mComms->protocolObjects().get<ProtocolObject>(); }

private slots:
    void initTestCase() { communication::RegisterMetaTypes(); }

    void init() {
        mPump = std::make_unique<PumpLine>();
        QVERIFY(mPump->pty().isValid());
        mComms = std::make_unique<ProtocolComms>(mLog);
        QVERIFY(mComms->openPort(mPump->portName()));
        mEvents.clear();
        connect(
            &proxy(), &ProtocolObject::getVersionResponse, this,
            [this](halyard::SemanticVersion v) {
                mEvents
                    << QStringLiteral("version %1.%2.%3").arg(v.major).arg(v.minor).arg(v.patch);
            });
        connect(&proxy(), &ProtocolObject::getKeepAliveResponse, this,
                [this] { mEvents << QStringLiteral("keep-alive"); });
        connect(mComms.get(), &ProtocolComms::transportError, this,
                [this](const QString& e) { mEvents << e; });
        connect(mComms.get(), &ProtocolComms::protocolError, this, [this](Status s) {
            mEvents << QString::fromLatin1(halyard::protocol::message::StatusName(s));
        });
    }

    void cleanup() {
        mComms.reset();
        mPump.reset();
    }

    void oneRead_dispatchesEveryFrameInArrivalOrder() {
        mPump->pty().write(PumpLine::frame(pumpGet(1, version(1, 2, 3))) +
                           PumpLine::frame(pumpGet(0)) +
                           PumpLine::frame(pumpGet(1, version(4, 5, 6))));
        QTRY_COMPARE(mEvents, (QStringList{"version 1.2.3", "keep-alive", "version 4.5.6"}));
    }

    void corruptFrame_transportErrorOnlyWhenFirstOfRead_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("events");
        const QByteArray ping = PumpLine::frame(pumpGet(0));
        QTest::newRow("first") << (kCorruptFrame + ping)
                               << QStringList{"Receive transport error", "InvalidMessage",
                                              "keep-alive"};
        QTest::newRow("between good ones")
            << (ping + kCorruptFrame + ping)
            << QStringList{"keep-alive", "InvalidMessage", "keep-alive"};
    }
    void corruptFrame_transportErrorOnlyWhenFirstOfRead() {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, events);
        mPump->pty().write(bytes);
        QTRY_COMPARE(mEvents, events);
    }

    void unknownObjectFromPump_isRefusedAndReported() {
        ProtocolMessage m = pumpGet(0);
        m.object = 42;
        mPump->send(m);
        QTRY_COMPARE(mEvents, QStringList{"InvalidObject"});
        QTRY_COMPARE(mPump->received().size(), 1);
        QCOMPARE(mPump->received().front().type, Type::NakStatus);
        QCOMPARE(mPump->received().front().status, Status::InvalidObject);
    }

    void request_answeredOverTheLine_orTimesOut() {
        mPump->setResponder([](PumpLine& line, const ProtocolMessage& request) {
            line.send(PumpLine::answer(request, Type::AckStatus, Status::Success));
        });
        QVERIFY(proxy().RequestKeepAlive());
        QTRY_COMPARE(mEvents, QStringList{"keep-alive"});
        QCOMPARE(mLog.OutstandingCount(), 0u);

        mPump->setResponder({});
        QSignalSpy timeouts(&proxy(), &ProtocolObject::keepAliveTimeout);
        QVERIFY(proxy().RequestKeepAlive());
        QTRY_COMPARE(timeouts.count(), 1);
        QCOMPARE(mLog.OutstandingCount(), 0u);
    }

    void reopen_keepsPartialFrameUntilItsEnd() {
        const QByteArray ping = PumpLine::frame(pumpGet(0));
        QSignalSpy read(mComms->findChild<QSerialPort*>(), &QSerialPort::readyRead);
        mPump->pty().write(ping.left(3));
        QVERIFY(read.wait());
        mComms->closePort();
        QVERIFY(mComms->openPort(mPump->portName()));
        mPump->pty().write(ping.mid(3));
        QTRY_COMPARE(mEvents, QStringList{"keep-alive"});
    }

    void vanishedDevice_closesPortButKeepsTimeouts() {
        QSignalSpy timeouts(&proxy(), &ProtocolObject::keepAliveTimeout);
        QVERIFY(proxy().RequestKeepAlive());
        mPump->pty().closeMaster();
        QTRY_VERIFY(!mComms->isPortOpen());
        QTRY_COMPARE(timeouts.count(), 1);
    }

    void openFailure_isReportedWithItsReasonInPlainWords() {
        mComms->closePort();
        QSignalSpy failures(mComms.get(), &ProtocolComms::portOpenFailed);
        QVERIFY(!mComms->openPort(QStringLiteral("/dev/no-such-port")));
        QCOMPARE(failures.count(), 1);
        QCOMPARE(failures[0][0].toString(), QStringLiteral("/dev/no-such-port"));
        QVERIFY2(failures[0][1].toString().contains(QStringLiteral("there is no such port")),
                 qPrintable(failures[0][1].toString()));
    }

    // Qt reports a device the user may not open and one another program holds alike.
    void openFailure_tellsMissingPermissionFromAPortInUse_data() {
        QTest::addColumn<QSerialPort::SerialPortError>("error");
        QTest::addColumn<bool>("accessible");
        QTest::addColumn<PortOpenFailure>("failure");
        QTest::addColumn<QString>("advice");
        QTest::newRow("not found") << QSerialPort::DeviceNotFoundError << true
                                   << PortOpenFailure::NotFound << "no such port";
        QTest::newRow("not in dialout")
            << QSerialPort::PermissionError << false << PortOpenFailure::NoPermission
            << "sudo usermod -aG dialout $USER";
        QTest::newRow("locked by another program")
            << QSerialPort::PermissionError << true << PortOpenFailure::InUse
            << "another program is using it";
        QTest::newRow("other") << QSerialPort::OpenError << true << PortOpenFailure::Other
                               << "Cannot open ttyUSB0: the detail";
    }
    void openFailure_tellsMissingPermissionFromAPortInUse() {
        QFETCH(QSerialPort::SerialPortError, error);
        QFETCH(bool, accessible);
        QFETCH(PortOpenFailure, failure);
        QFETCH(QString, advice);
        QCOMPARE(communication::ClassifyPortOpenFailure(error, accessible), failure);
        const QString text = communication::PortOpenFailureText(failure, QStringLiteral("ttyUSB0"),
                                                                QStringLiteral("the detail"));
        QVERIFY2(text.contains(advice), qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(ProtocolCommsTest)
#include "ProtocolCommsTest.moc"
