#pragma once

#include "FrameObserver.h"

#include <QElapsedTimer>
#include <QFile>
#include <QString>

#include <array>

namespace communication {

/// Writes every frame the link sends and receives, with the milliseconds since the recording
/// began, to a text file a technician can send to support; the pump simulator can play the
/// pump's side of it back (`pump-simulator --replay FILE`). One event a line:
///
///     # Brackwater Link session recording 1
///     # application Brackwater Link 1.16.1
///     # started 2025-06-01T10:15:30.123+02:00
///     0 open /dev/ttyUSB0
///     12 tx 00 00 00 00 01 00 | id=0 Request 0/0 attr=1 Get
///     31 rx 00 01 00 00 03 01 00 00 | id=0 AckStatus Success for 0/0 attr=1 Get
///     2018 rx-malformed
///     2112 timeout 4 | 0/0 attr=0 Get
///     5000 close
///
/// `tx` and `rx` carry the message bytes in hex (the frame's content, COBS removed); what follows
/// " | " is a reading aid that a program may ignore. docs/session-recording.md has the whole
/// form.
///
/// Comms thread only, like the link it listens to. Lines go through the file's buffer; flush()
/// (once a second, from the link monitor) puts them on the disk. A write that fails (a full
/// disk) or a file that reaches kMaxBytes ends the recording, with the reason in lastError().
class SessionRecorder final : public FrameObserver {
public:
    /// A recording stops here rather than fill a technician's disk (about five hours of a
    /// link streaming everything the screens show).
    static constexpr qint64 kMaxBytes = qint64{256} * 1024 * 1024;

    SessionRecorder();
    ~SessionRecorder() override;
    SessionRecorder(const SessionRecorder&) = delete;
    SessionRecorder& operator=(const SessionRecorder&) = delete;

    /// Starts a recording into `path` (created, or emptied), ending any earlier one first.
    /// `openPort` names the port already open, if any, so that the recording starts with it.
    /// False, with the reason in lastError(), when the file cannot be written.
    bool start(const QString& path, const QString& openPort = QString());
    /// Ends the recording and closes the file; nothing when none runs.
    void stop();
    void flush();

    bool isRecording() const { return mFile.isOpen(); }
    /// The file of the running (or the last) recording.
    QString path() const { return mFile.fileName(); }
    /// Events written by the running (or the last) recording.
    quint64 eventsWritten() const { return mEvents; }
    /// Why the last recording could not start or had to stop; empty when it did neither.
    QString lastError() const { return mLastError; }

    void portOpened(const QString& portName);
    void portClosed();

    void FrameSent(const std::uint8_t* message, std::size_t length) override;
    void FrameReceived(const std::uint8_t* message, std::int32_t length) override;
    void RequestTimedOut(std::uint8_t id) override;

private:
    /// What a request addressed: object, instance, attribute, operation.
    using RequestKey = std::array<std::uint8_t, 4>;

    void writeEvent(const QByteArray& event);
    void fail(const QString& reason);
    void rememberRequest(const std::uint8_t* message, std::size_t length);

    QFile mFile;
    QElapsedTimer mClock;
    quint64 mEvents = 0;
    QString mLastError;
    /// The last request sent under each id, so that answers and time-outs (which carry only the
    /// id) can be read without the request at hand.
    std::array<RequestKey, 256> mRequests{};
    std::array<bool, 256> mRequestKnown{};
};

} // namespace communication
