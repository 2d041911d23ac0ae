#pragma once

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/Protocol.h"
#include "Common/Protocol/ProtocolRequestLog.h"
#include "Common/Protocol/SystemInterface.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <array>
#include <memory>
#include <vector>

class QSerialPort;
class QSocketNotifier;

namespace simtest {

using halyard::protocol::ProtocolMessage;
using Operation = halyard::protocol::message::Operation;
using Status = halyard::protocol::message::Status;
using Type = halyard::protocol::message::Type;

/// The application's side of the link, built straight on the protocol library: it sends
/// requests, records every answer, time-out and update (acknowledging updates unless told not
/// to), and keeps the raw bytes of every received message for byte-exact checks.
class AppSide : public QObject, public halyard::protocol::PayloadOutHandler {
    Q_OBJECT

public:
    struct Received {
        ProtocolMessage message;
        qint64 atMs = 0;
    };

    AppSide();
    ~AppSide() override;

    /// Opens a port by path (the simulator's pseudo-terminal slave).
    bool open(const QString& path);
    /// Uses an already open descriptor (a pseudo-terminal master), not owned.
    void adopt(int fd);
    void close();

    /// Sends a request; false when it could not be sent.
    bool request(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                 Operation operation, const QByteArray& payload = {});
    bool subscribe(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                   std::uint16_t periodMs, bool onChange);

    qint64 now() const { return mClock.elapsed(); }
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override;

    // What arrived. Answers include the time-outs that the request log made.
    QList<Received> answers;
    QList<Received> updates;
    QList<QByteArray> rawMessages; // every received message's bytes, as decoded from its frame
    QList<qint64> rawTimes;
    qint64 bytesReceived = 0;
    bool acknowledgeUpdates = true;

    /// Updates received for one attribute.
    QList<Received> updatesOf(std::uint8_t object, std::uint8_t instance,
                              std::uint8_t attribute) const;

signals:
    void answered();

private:
    class Recorder;
    class Clock;

    void onBytes(const QByteArray& bytes);

    QElapsedTimer mClock;
    std::unique_ptr<Clock> mSystem;
    std::array<std::uint8_t, 2048> mRing{};
    std::array<std::uint8_t, 2048> mScratch{};
    std::array<std::uint8_t, 2048> mTransmit{};
    std::array<std::uint8_t, 2048> mDecoded{};
    halyard::protocol::CobsTransport mTransport;
    std::unique_ptr<halyard::protocol::ProtocolRequestLog> mLog;
    std::unique_ptr<halyard::protocol::Protocol> mProtocol;
    std::vector<std::unique_ptr<Recorder>> mRecorders;
    QTimer mTimeoutScan;
    QSerialPort* mPort = nullptr;
    QSocketNotifier* mNotifier = nullptr;
    int mFd = -1;
};

/// A message's bytes written as hex with spaces, for readable comparisons.
QString hex(const QByteArray& bytes);

} // namespace simtest
