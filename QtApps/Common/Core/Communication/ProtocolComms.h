#pragma once

#include "LinkMonitor.h"
#include "LinkTap.h"
#include "ProtocolCommsInterface.h"
#include "ProtocolObjectContainer.h"
#include "ProtocolRequestLogWrapper.h"
#include "ProtocolTransmit.h"
#include "QtSerialWrapper.h"
#include "SessionRecorder.h"
#include "SystemWrapper.h"

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/Protocol.h"

#include <QSerialPort>
#include <QTimer>

#include <array>

namespace communication {

/// The whole link for one serial port: port, COBS transport, message layer, transmit queue,
/// request-log time-out scan and the protocol object proxies. Built on the main thread and then
/// moved, with every child and timer, to "ProtocolCommsThread"; from then on it is used only on
/// that thread (queued calls from elsewhere).
///
/// Every frame passes a LinkTap on its way, which counts it for the link health (published once
/// a second by the link monitor) and, while a session recording runs, hands it to the recorder.
class ProtocolComms final : public ProtocolCommsInterface {
    Q_OBJECT

public:
    static constexpr std::size_t kBufferSize = 2048;

    /// `requestLog` (not owned) outlives the comms object.
    explicit ProtocolComms(ProtocolRequestLogWrapper& requestLog, QObject* parent = nullptr);
    /// Sends what is still queued, then closes the port.
    ~ProtocolComms() override;

    bool openPort(const QString& portName) override;
    void closePort() override;
    void clearRequestLog() override;
    ProtocolObjectContainer& protocolObjects() override { return *mObjects; }

    bool isPortOpen() const { return mSerial->isOpen(); }
    QString portName() const { return mSerial->portName(); }
    ProtocolTransmit& transmit() { return *mTransmit; }

    /// Records every frame from now on into `path` (see SessionRecorder), ending a running
    /// recording first. False when the file cannot be written (the reason is logged and in
    /// recorder().lastError()). One call switches recording on, for any program that builds a
    /// link; make it on the link's thread.
    bool startRecording(const QString& path);
    void stopRecording();
    const SessionRecorder& recorder() const { return mRecorder; }
    /// The link health's once-a-second figures (its statsUpdated signal).
    LinkMonitor& linkMonitor() { return *mMonitor; }

private slots:
    void checkTimeouts();
    void onReadyRead();
    void onPortError(QSerialPort::SerialPortError error);

private:
    // The buffers come first so that they exist before the objects that are handed them.
    std::array<std::uint8_t, kBufferSize> mTransmitBuffer{};
    std::array<std::uint8_t, kBufferSize> mFrameBuffer{};
    std::array<std::uint8_t, kBufferSize> mReceiveRing{};
    std::array<std::uint8_t, kBufferSize> mDecodeScratch{};

    wrappers::QtSerialWrapper* mSerial;
    ProtocolRequestLogWrapper& mRequestLog;
    halyard::protocol::Protocol mProtocol;
    halyard::protocol::CobsTransport mTransport;
    ProtocolTransmit* mTransmit;
    wrappers::SystemWrapper mClock;
    LinkTap mTap;
    SessionRecorder mRecorder;
    ProtocolObjectContainer* mObjects;
    LinkMonitor* mMonitor;
    QTimer* mTimeoutScan;
    bool mPortErrorReported = false;
};

} // namespace communication
