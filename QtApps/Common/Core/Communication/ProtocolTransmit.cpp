#include "ProtocolTransmit.h"

#include <QTimerEvent>

namespace communication {

ProtocolTransmit::ProtocolTransmit(halyard::protocol::TransportInterface& transport,
                                   QtDeviceInterface& device, QObject* parent)
    : QObject(parent)
    , mTransport(transport)
    , mDevice(device)
    , mRing(mRingStorage.data(), mRingStorage.size()) {}

bool ProtocolTransmit::PayloadOut(const std::uint8_t* data, std::size_t length) {
    const std::int32_t frameLength =
        mTransport.Encode(mEncodeBuffer.data(), mEncodeBuffer.size(), data, length);
    if (frameLength == 0) {
        emit protocolTransmitError(QStringLiteral("nothing to transmit"));
        return false;
    }
    if (frameLength < 0) {
        emit protocolTransmitError(QStringLiteral("error mTransport.DataOut"));
        return false;
    }
    const auto frameSize = static_cast<std::size_t>(frameLength);
    if (frameSize > mRing.Free()) {
        emit protocolTransmitError(QStringLiteral("error insufficient queue space"));
        return false;
    }
    const std::size_t queued = mRing.Write(mEncodeBuffer.data(), frameSize);
    if (!mTimer.isActive()) {
        mTimer.start(kTickMs, Qt::PreciseTimer, this);
    }
    if (queued < frameSize) {
        emit protocolTransmitError(QStringLiteral("error enqueueing"));
        return false;
    }
    return true;
}

void ProtocolTransmit::timerEvent(QTimerEvent* event) {
    if (event->timerId() != mTimer.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    // Everything queued goes now, so the tick has nothing left to wait for until the next send.
    mTimer.stop();
    Drain();
}

void ProtocolTransmit::SendQueuedNow() {
    mTimer.stop();
    Drain();
}

void ProtocolTransmit::Drain() {
    const std::size_t count = mRing.Count();
    if (count == 0) {
        return;
    }
    const std::size_t taken = mRing.Read(mWriteBuffer.data(), count);
    if (taken < count) {
        emit protocolTransmitError(QStringLiteral("error dequeueing"));
        return;
    }
    const auto length = static_cast<qint64>(taken);
    const qint64 written =
        mDevice.write(reinterpret_cast<const char*>(mWriteBuffer.data()), length);
    if (written <= 0 || written < length) {
        emit protocolTransmitError(QStringLiteral("error writing to device"));
        return;
    }
    if (!mDevice.flush()) {
        emit protocolTransmitError(QStringLiteral("error flush on transmit"));
    }
}

} // namespace communication
