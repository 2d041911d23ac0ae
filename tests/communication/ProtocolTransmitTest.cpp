// The transmit queue writing to a real serial port on a pseudo-terminal.
#include "QtApps/Common/Core/Communication/ProtocolTransmit.h"
#include "QtApps/Common/Core/Communication/QtSerialWrapper.h"
#include "tests/support/PtyPair.h"

#include "Common/Protocol/CobsTransport.h"

#include <QSignalSpy>
#include <QTest>

using communication::ProtocolTransmit;

namespace {

QByteArray messageOf(int length, char fill) {
    return QByteArray(length, fill);
}

bool send(ProtocolTransmit& transmit, const QByteArray& message) {
    return transmit.PayloadOut(reinterpret_cast<const std::uint8_t*>(message.constData()),
                               static_cast<std::size_t>(message.size()));
}

} // namespace

class ProtocolTransmitTest : public QObject {
    Q_OBJECT

private:
    std::array<std::uint8_t, 2048> mRing{};
    std::array<std::uint8_t, 2048> mScratch{};
    std::unique_ptr<halyard::protocol::CobsTransport> mTransport;
    std::unique_ptr<testsupport::PtyPair> mPty;
    std::unique_ptr<wrappers::QtSerialWrapper> mPort;
    std::unique_ptr<ProtocolTransmit> mTransmit;

private slots:
    void init() {
        mTransport = std::make_unique<halyard::protocol::CobsTransport>(
            mRing.data(), mRing.size(), mScratch.data(), mScratch.size());
        mPty = std::make_unique<testsupport::PtyPair>();
        QVERIFY(mPty->isValid());
        mPort = std::make_unique<wrappers::QtSerialWrapper>();
        QVERIFY(mPort->openPort(mPty->portName()));
        mTransmit = std::make_unique<ProtocolTransmit>(*mTransport, *mPort);
    }

    void cleanup() {
        mTransmit.reset();
        mPort.reset();
        mPty.reset();
    }

    void twoSendsWithinATick_leaveInOneWrite() {
        QSignalSpy writes(mPort.get(), &QSerialPort::bytesWritten);
        QVERIFY(send(*mTransmit, messageOf(10, 'a')));
        QVERIFY(send(*mTransmit, messageOf(20, 'b')));
        // Each frame: the 1-byte COBS overhead, the end mark and the delimiter.
        const int expected = (10 + 3) + (20 + 3);
        QTRY_COMPARE(mPty->received().size(), expected);
        QCOMPARE(writes.count(), 1);
        QCOMPARE(writes.front().front().toLongLong(), expected);
        QCOMPARE(mPty->received().mid(1, 10), messageOf(10, 'a'));
        QCOMPARE(mPty->received().mid(13 + 1, 20), messageOf(20, 'b'));
    }

    void fullQueue_refusesFrameWholeAndKeepsQueue() {
        QSignalSpy errors(mTransmit.get(), &ProtocolTransmit::protocolTransmitError);
        // 20 frames of 100 bytes = 2000 queued, all within one tick (no event loop runs here).
        for (int i = 0; i < 20; ++i) {
            QVERIFY(send(*mTransmit, messageOf(97, char('A' + i))));
        }
        QCOMPARE(mTransmit->QueuedBytes(), 2000u);
        QVERIFY(!send(*mTransmit, messageOf(97, 'z')));
        QCOMPARE(errors.count(), 1);
        QCOMPARE(errors.front().front().toString(),
                 QStringLiteral("error insufficient queue space"));
        QCOMPARE(mTransmit->QueuedBytes(), 2000u);

        QTRY_COMPARE(mPty->received().size(), 2000);
        QCOMPARE(mPty->received().mid(19 * 100 + 1, 97), messageOf(97, 'T'));
        QVERIFY(!mPty->received().contains('z'));
    }

    void idleQueue_disarmsTick_andClosedPortFailsTheWrite() {
        QVERIFY(!mTransmit->TickArmed());
        QVERIFY(send(*mTransmit, messageOf(5, 'x')));
        QVERIFY(mTransmit->TickArmed());
        QTRY_COMPARE(mPty->received().size(), 8);
        QVERIFY(!mTransmit->TickArmed());

        QSignalSpy errors(mTransmit.get(), &ProtocolTransmit::protocolTransmitError);
        mPort->closePort();
        QVERIFY(send(*mTransmit, messageOf(5, 'y')));
        QTRY_COMPARE(errors.count(), 1);
        QCOMPARE(errors.front().front().toString(), QStringLiteral("error writing to device"));
        QCOMPARE(mTransmit->QueuedBytes(), 0u);
        QVERIFY(!mTransmit->TickArmed());
    }

    void emptyMessage_isNothingToTransmit() {
        QSignalSpy errors(mTransmit.get(), &ProtocolTransmit::protocolTransmitError);
        QVERIFY(!send(*mTransmit, QByteArray()));
        QCOMPARE(errors.front().front().toString(), QStringLiteral("nothing to transmit"));
        QVERIFY(!mTransmit->TickArmed());
    }
};

QTEST_GUILESS_MAIN(ProtocolTransmitTest)
#include "ProtocolTransmitTest.moc"
