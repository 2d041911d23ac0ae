#include "PumpLink.h"

#include "SerialLine.h"

#include "Common/Protocol/MessageTypes.h"
#include "Common/Protocol/ReceiveStream.h"

#include <QDebug>

namespace simulator {

namespace msg = halyard::protocol::message;

namespace {
// Separate random sequences per direction, so that faults on one side do not shift the other's.
constexpr quint64 kInboundSalt = 0x9E3779B97F4A7C15ull;
constexpr quint64 kOutboundSalt = 0xC2B2AE3D27D4EB4Full;
} // namespace

PumpLink::PumpLink(const SimulatorOptions& options, SimulatorClock& clock, SerialLine& line,
                   FrameLog& frameLog, QObject* parent)
    : QObject(parent)
    , mOptions(options)
    , mClock(clock)
    , mLine(line)
    , mFrameLog(frameLog)
    , mTransport(mRing.data(), mRing.size(), mScratch.data(), mScratch.size())
    , mRequestLog(kRequestTimeoutMs, clock)
    , mProtocol(mTransmit.data(), mTransmit.size(), mRequestLog)
    , mFaultsIn(options.faultsIn, options.seed ^ kInboundSalt)
    , mFaultsOut(options.faultsOut, options.seed ^ kOutboundSalt) {
    // The application never sends a leading delimiter: prime the ring with one.
    const std::uint8_t delimiter = 0;
    mTransport.DataIn(&delimiter, 1);
    mProtocol.SetPayloadOutHandler(this);

    connect(&mLine, &SerialLine::bytesReceived, this, &PumpLink::onBytesReceived);
    mTimeoutScan.setInterval(static_cast<int>(mRequestLog.TimeoutInterval()));
    connect(&mTimeoutScan, &QTimer::timeout, this,
            [this]() { mRequestLog.CheckTimeouts(mProtocol); });
    mTimeoutScan.start();
    mDeliveryTimer.setSingleShot(true);
    mDeliveryTimer.setTimerType(Qt::PreciseTimer);
    connect(&mDeliveryTimer, &QTimer::timeout, this, &PumpLink::deliverDueFrames);
}

bool PumpLink::isQuiet() const {
    return mQuietUntil >= 0 && static_cast<qint64>(mClock.ElapsedMilliseconds()) < mQuietUntil;
}

bool PumpLink::isStalled() const {
    if (mOptions.stallMs <= 0) {
        return false;
    }
    // Each interval ends with a stall, so a run starts with a working link.
    const auto interval = static_cast<std::uint64_t>(mOptions.stallIntervalMs);
    const auto phase = mClock.ElapsedMilliseconds() % interval;
    return phase >= interval - static_cast<std::uint64_t>(mOptions.stallMs);
}

void PumpLink::goQuietFor(int ms) {
    // Frames already on their way (reply latency) still go out: they left before the reboot.
    mQuietUntil = static_cast<qint64>(mClock.ElapsedMilliseconds()) + ms;
    mProtocol.ClearRequestLog();
}

void PumpLink::onBytesReceived(const QByteArray& bytes) {
    if (isQuiet()) {
        return;
    }
    halyard::protocol::ReceiveStream(
        mTransport, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()), mDecoded.data(), mDecoded.size(),
        [this](std::int32_t length) {
            if (length < 0) {
                ++mCounters.badFramesIn;
                qWarning("Receive transport error");
                mFrameLog.log(mClock.ElapsedMilliseconds(), FrameLog::Direction::In, {}, {},
                              QStringLiteral("malformed frame"));
                return;
            }
            handleMessage(QByteArray(reinterpret_cast<const char*>(mDecoded.data()), length));
        });
}

void PumpLink::handleMessage(const QByteArray& received) {
    ++mCounters.framesIn;
    const std::uint64_t now = mClock.ElapsedMilliseconds();
    QByteArray message = received;
    if (isStalled()) {
        ++mCounters.stalledFrames;
        mFrameLog.log(now, FrameLog::Direction::In, encode(message), message,
                      QStringLiteral("ignored: stall"));
        return;
    }
    int copies = 1;
    QString note;
    switch (mFaultsIn.nextFate()) {
    case LineFaults::Fate::Pass:
        break;
    case LineFaults::Fate::Drop:
        ++mCounters.injectedFaults;
        mFrameLog.log(now, FrameLog::Direction::In, encode(message), message,
                      QStringLiteral("injected: dropped"));
        return;
    case LineFaults::Fate::Corrupt:
        ++mCounters.injectedFaults;
        mFaultsIn.corrupt(message, message.size());
        note = QStringLiteral("injected: corrupted");
        break;
    case LineFaults::Fate::Duplicate:
        ++mCounters.injectedFaults;
        copies = 2;
        note = QStringLiteral("injected: duplicated");
        break;
    }
    mFrameLog.log(now, FrameLog::Direction::In, encode(message), message, note);
    for (int i = 0; i < copies; ++i) {
        emit frameReceived();
        if (mMessageHandler) {
            mMessageHandler(message);
            continue;
        }
        const msg::Status status =
            mProtocol.ReceiveBytes(reinterpret_cast<const std::uint8_t*>(message.constData()),
                                   static_cast<std::int32_t>(message.size()));
        if (status != msg::Status::Success && status != msg::Status::Failed) {
            qWarning("Protocol error %s", msg::StatusName(status));
        }
    }
}

QByteArray PumpLink::encode(const QByteArray& message) {
    QByteArray frame(message.size() + 8, '\0');
    const std::int32_t length = mTransport.Encode(
        reinterpret_cast<std::uint8_t*>(frame.data()), static_cast<std::size_t>(frame.size()),
        reinterpret_cast<const std::uint8_t*>(message.constData()),
        static_cast<std::size_t>(message.size()));
    frame.resize(length > 0 ? length : 0);
    return frame;
}

bool PumpLink::PayloadOut(const std::uint8_t* data, std::size_t length) {
    if (isQuiet()) {
        return true; // a rebooting pump says nothing; the application will time out
    }
    const QByteArray message(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length));
    QByteArray frame = encode(message);
    if (frame.isEmpty()) {
        qWarning("error mTransport.DataOut");
        return false;
    }
    const std::uint64_t now = mClock.ElapsedMilliseconds();
    if (isStalled()) {
        ++mCounters.stalledFrames;
        mFrameLog.log(now, FrameLog::Direction::Out, frame, message,
                      QStringLiteral("withheld: stall"));
        return true;
    }
    switch (mFaultsOut.nextFate()) {
    case LineFaults::Fate::Pass:
        mFrameLog.log(now, FrameLog::Direction::Out, frame, message, {});
        queueFrame(frame);
        break;
    case LineFaults::Fate::Drop:
        ++mCounters.injectedFaults;
        mFrameLog.log(now, FrameLog::Direction::Out, frame, message,
                      QStringLiteral("injected: dropped"));
        break;
    case LineFaults::Fate::Corrupt:
        ++mCounters.injectedFaults;
        // Only the COBS body: the closing 0x01 0x00 stays, as a noisy line keeps its framing
        // more often than not.
        mFaultsOut.corrupt(frame, frame.size() - 2);
        mFrameLog.log(now, FrameLog::Direction::Out, frame, message,
                      QStringLiteral("injected: corrupted"));
        queueFrame(frame);
        break;
    case LineFaults::Fate::Duplicate:
        ++mCounters.injectedFaults;
        mFrameLog.log(now, FrameLog::Direction::Out, frame, message,
                      QStringLiteral("injected: duplicated"));
        queueFrame(frame);
        queueFrame(frame);
        break;
    }
    return true;
}

void PumpLink::sendMalformedFrame() {
    if (isQuiet()) {
        return;
    }
    // A COBS code byte that promises four more bytes where only two follow.
    const QByteArray frame = QByteArray::fromHex("05112201"
                                                 "00");
    mFrameLog.log(mClock.ElapsedMilliseconds(), FrameLog::Direction::Out, frame, {},
                  QStringLiteral("malformed on purpose"));
    queueFrame(frame);
}

void PumpLink::queueFrame(const QByteArray& frame) {
    ++mCounters.framesOut;
    if (mOptions.replyLatencyMs <= 0) {
        mLine.write(frame);
        return;
    }
    mDelayed.emplace_back(
        static_cast<qint64>(mClock.ElapsedMilliseconds()) + mOptions.replyLatencyMs, frame);
    if (!mDeliveryTimer.isActive()) {
        mDeliveryTimer.start(mOptions.replyLatencyMs);
    }
}

void PumpLink::deliverDueFrames() {
    const auto now = static_cast<qint64>(mClock.ElapsedMilliseconds());
    while (!mDelayed.empty() && mDelayed.front().first <= now) {
        mLine.write(mDelayed.front().second);
        mDelayed.pop_front();
    }
    if (!mDelayed.empty()) {
        mDeliveryTimer.start(static_cast<int>(qMax<qint64>(0, mDelayed.front().first - now)));
    }
}

} // namespace simulator
