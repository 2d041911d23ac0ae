#pragma once

#include "FrameLog.h"
#include "LineFaults.h"
#include "SimulatorClock.h"
#include "SimulatorOptions.h"

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <deque>
#include <functional>

namespace simulator {

class SerialLine;

/// The pump's side of the link: COBS framing, the message layer with its request log and
/// time-out scan (the pump's updates are requests that the application acknowledges), reply
/// latency, stalls, quiet spells while rebooting, fault injection and the frame log.
class PumpLink : public QObject, public halyard::protocol::PayloadOutHandler {
    Q_OBJECT

public:
    static constexpr std::size_t kBufferSize = 2048;
    static constexpr std::uint32_t kRequestTimeoutMs = 100;

    struct Counters {
        quint64 framesIn = 0;
        quint64 framesOut = 0;
        quint64 badFramesIn = 0;
        quint64 injectedFaults = 0;
        quint64 stalledFrames = 0;
    };

    PumpLink(const SimulatorOptions& options, SimulatorClock& clock, SerialLine& line,
             FrameLog& frameLog, QObject* parent = nullptr);

    halyard::protocol::Protocol& protocol() { return mProtocol; }
    const Counters& counters() const { return mCounters; }

    /// Neither hears nor says anything for `ms` milliseconds, and forgets outstanding requests:
    /// what a reboot looks like from the line.
    void goQuietFor(int ms);
    bool isStalled() const;

    bool PayloadOut(const std::uint8_t* data, std::size_t length) override;
    /// Sends a frame that does not decode (a damaged frame, as a noisy line delivers one).
    void sendMalformedFrame();

    /// Messages from the application go to `handler` instead of the message layer (a replayed
    /// recording answers them); after the fault injection, as any received message.
    void setMessageHandler(std::function<void(const QByteArray& message)> handler) {
        mMessageHandler = std::move(handler);
    }

signals:
    /// A frame from the application arrived and is about to be handled.
    void frameReceived();

private:
    void onBytesReceived(const QByteArray& bytes);
    void handleMessage(const QByteArray& message);
    void queueFrame(const QByteArray& frame);
    void deliverDueFrames();
    bool isQuiet() const;
    QByteArray encode(const QByteArray& message);

    const SimulatorOptions& mOptions;
    SimulatorClock& mClock;
    SerialLine& mLine;
    FrameLog& mFrameLog;

    std::array<std::uint8_t, kBufferSize> mRing{};
    std::array<std::uint8_t, kBufferSize> mScratch{};
    std::array<std::uint8_t, kBufferSize> mTransmit{};
    std::array<std::uint8_t, kBufferSize> mDecoded{};
    halyard::protocol::CobsTransport mTransport;
    halyard::protocol::ProtocolRequestLog mRequestLog;
    halyard::protocol::Protocol mProtocol;

    LineFaults mFaultsIn;
    LineFaults mFaultsOut;
    QTimer mTimeoutScan;
    QTimer mDeliveryTimer;
    std::deque<std::pair<qint64, QByteArray>> mDelayed;
    qint64 mQuietUntil = -1;
    Counters mCounters;
    std::function<void(const QByteArray& message)> mMessageHandler;
};

} // namespace simulator
