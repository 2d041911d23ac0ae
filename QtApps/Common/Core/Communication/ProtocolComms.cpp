#include "ProtocolComms.h"

#include "PortOpenFailure.h"

#include "QtApps/Common/Logger/Log.h"

#include "Common/Protocol/ReceiveStream.h"

namespace communication {

using halyard::protocol::message::Status;

namespace {
// Bounds the wait for the last frames at shutdown.
constexpr int kLastWriteWaitMs = 100;
} // namespace

ProtocolComms::ProtocolComms(ProtocolRequestLogWrapper& requestLog, QObject* parent)
    : ProtocolCommsInterface(parent)
    , mSerial(new wrappers::QtSerialWrapper(this))
    , mRequestLog(requestLog)
    , mProtocol(mTransmitBuffer.data(), mTransmitBuffer.size(), requestLog)
    , mTransport(mReceiveRing.data(), mReceiveRing.size(), mDecodeScratch.data(),
                 mDecodeScratch.size())
    , mTransmit(new ProtocolTransmit(mTransport, *mSerial, this))
    , mTap(*mTransmit, mProtocol, mClock)
    , mObjects(new ProtocolObjectContainer(mProtocol, this))
    , mMonitor(new LinkMonitor(mTap.counters(), mRecorder, *mSerial, this))
    , mTimeoutScan(new QTimer(this)) {
    mProtocol.SetPayloadOutHandler(&mTap);
    // The pump never sends a leading delimiter: this one opens the very first frame.
    const std::uint8_t delimiter = 0x00;
    mTransport.DataIn(&delimiter, 1);

    connect(mTransmit, &ProtocolTransmit::protocolTransmitError, this,
            [this](const QString& error) {
                mTap.counters().TransportFailed(TransportError::TransmitFailed);
                BWL_LOG_WARN("protocolTransmitError", error);
            });
}

ProtocolComms::~ProtocolComms() {
    if (mSerial->isOpen()) {
        mTransmit->SendQueuedNow();
        mSerial->waitForBytesWritten(kLastWriteWaitMs);
    }
    closePort();
    // The monitor listens to the port, a child that outlives the members it counts into.
    delete mMonitor;
    mTap.SetObserver(nullptr);
    mRecorder.stop();
}

bool ProtocolComms::startRecording(const QString& path) {
    mTap.SetObserver(nullptr);
    const bool started = mRecorder.start(path, isPortOpen() ? portName() : QString());
    if (started) {
        mTap.SetObserver(&mRecorder);
    }
    mMonitor->publish();
    return started;
}

void ProtocolComms::stopRecording() {
    mTap.SetObserver(nullptr);
    mRecorder.stop();
    mMonitor->publish();
}

bool ProtocolComms::openPort(const QString& portName) {
    if (!mSerial->openPort(portName)) {
        const PortOpenFailure failure =
            ClassifyPortOpenFailure(mSerial->error(), IsDeviceAccessible(portName));
        emit portOpenFailed(portName,
                            PortOpenFailureText(failure, portName, mSerial->errorString()));
        return false;
    }
    mPortErrorReported = false;
    if (mRecorder.isRecording()) {
        mRecorder.portOpened(portName);
    }
    connect(mSerial, &QSerialPort::readyRead, this, &ProtocolComms::onReadyRead,
            Qt::UniqueConnection);
    connect(mSerial, &QSerialPort::errorOccurred, this, &ProtocolComms::onPortError,
            Qt::UniqueConnection);
    connect(mTimeoutScan, &QTimer::timeout, this, &ProtocolComms::checkTimeouts,
            Qt::UniqueConnection);
    mTimeoutScan->start(static_cast<int>(mRequestLog.TimeoutInterval()));
    return true;
}

// The receive ring, the transmit queue and the request log keep their contents: a partial frame
// is completed or dropped by the next delimiters, and requests still outstanding are reported by
// the time-out scan once a port is open again (the session clears the log before it rescans).
void ProtocolComms::closePort() {
    disconnect(mSerial, &QSerialPort::readyRead, this, &ProtocolComms::onReadyRead);
    disconnect(mSerial, &QSerialPort::errorOccurred, this, &ProtocolComms::onPortError);
    disconnect(mTimeoutScan, &QTimer::timeout, this, &ProtocolComms::checkTimeouts);
    mTimeoutScan->stop();
    if (mSerial->isOpen() && mRecorder.isRecording()) {
        mRecorder.portClosed();
    }
    mSerial->closePort();
}

void ProtocolComms::clearRequestLog() {
    mProtocol.ClearRequestLog();
}

// Through the tap, which counts each time-out before the message layer hands it on.
void ProtocolComms::checkTimeouts() {
    mRequestLog.CheckTimeouts(mTap);
}

void ProtocolComms::onReadyRead() {
    const QByteArray bytes = mSerial->readAll();
    if (bytes.isEmpty()) {
        return;
    }
    mTap.BytesReceived(static_cast<std::size_t>(bytes.size()));
    bool firstFrame = true;
    halyard::protocol::ReceiveStream(
        mTransport, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()), mFrameBuffer.data(), mFrameBuffer.size(),
        [this, &firstFrame](std::int32_t length) {
            // Reported once per read, for its first frame; the message layer still rejects every
            // malformed frame below.
            if (length < 0 && firstFrame) {
                emit transportError(QStringLiteral("Receive transport error"));
            }
            firstFrame = false;
            mTap.FrameReceived(mFrameBuffer.data(), length);
            const Status status = mProtocol.ReceiveBytes(mFrameBuffer.data(), length);
            mTap.FrameHandled(length, status);
            if (status != Status::Success) {
                emit protocolError(status);
            }
        });
}

// A device that vanishes (a USB adapter pulled, the far end of a pseudo-terminal closed) keeps
// signalling its read error on every event-loop pass while the port stays open. The device is
// closed here so the comms thread does not spin, while the time-out scan goes on: the session
// notices the silence through its time-outs and scans again. Errors are logged once per open.
void ProtocolComms::onPortError(QSerialPort::SerialPortError error) {
    if (error == QSerialPort::NoError) {
        return;
    }
    mTap.counters().TransportFailed(TransportError::PortError);
    if (!mPortErrorReported) {
        mPortErrorReported = true;
        BWL_LOG_WARN("onPortError", QStringLiteral("Serial port %1 error %2: %3")
                                        .arg(mSerial->portName())
                                        .arg(static_cast<int>(error))
                                        .arg(mSerial->errorString()));
    }
    if (error == QSerialPort::ResourceError || error == QSerialPort::ReadError) {
        mSerial->closePort();
    }
}

} // namespace communication
