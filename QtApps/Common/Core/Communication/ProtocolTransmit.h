#pragma once

#include "QtDeviceInterface.h"

#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/RingBuffer.h"
#include "Common/Protocol/TransportInterface.h"

#include <QBasicTimer>
#include <QObject>

#include <array>

namespace communication {

/// The transmit queue. Sending only frames and queues a message; a 1 ms precise timer writes
/// whatever is queued to the port in one write, so messages sent within a millisecond leave
/// together and a send never waits for the port.
///
/// The timer runs only while bytes are queued: an idle 1 ms tick would wake a technician's
/// laptop a thousand times a second for nothing. Queued bytes are written whether or not a port
/// is open; with none open the write fails and "error writing to device" is reported.
class ProtocolTransmit final : public QObject, public halyard::protocol::PayloadOutHandler {
    Q_OBJECT

public:
    static constexpr std::size_t kBufferSize = 2048;
    static constexpr int kTickMs = 1;

    ProtocolTransmit(halyard::protocol::TransportInterface& transport, QtDeviceInterface& device,
                     QObject* parent = nullptr);

    /// Frames one serialised message and queues it whole; false (with protocolTransmitError)
    /// when it cannot be queued, in which case the queue is left as it was.
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override;

    /// Writes what is queued at once instead of at the next tick (used when the link shuts down,
    /// so that a last stop-session request still leaves).
    void SendQueuedNow();

    std::size_t QueuedBytes() const { return mRing.Count(); }
    bool TickArmed() const { return mTimer.isActive(); }

signals:
    void protocolTransmitError(QString error);

protected:
    /// Drains the queue into one port write.
    void timerEvent(QTimerEvent* event) override;

private:
    void Drain();

    halyard::protocol::TransportInterface& mTransport;
    QtDeviceInterface& mDevice;
    std::array<std::uint8_t, kBufferSize> mEncodeBuffer{};
    std::array<std::uint8_t, kBufferSize> mRingStorage{};
    std::array<std::uint8_t, kBufferSize> mWriteBuffer{};
    halyard::protocol::RingBuffer mRing;
    QBasicTimer mTimer;
};

} // namespace communication
