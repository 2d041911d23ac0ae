#pragma once

#include "PortProblems.h"

#include "QtApps/Common/Core/Communication/ProtocolCommsInterface.h"
#include "QtApps/Common/Logger/Log.h"

#include "Common/Protocol/SemanticVersion.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace communication {

namespace objects {
class ProtocolObject;
}

/// Finds the pump among the serial ports, opens a protocol session with it, keeps the session
/// alive with a ping every second and scans again when three requests in a row go unanswered.
///
/// Thread: the session lives on the comms thread, beside the link it drives. Opening a port and
/// sending through the proxy are then plain calls on the thread that owns them, and the 200 ms
/// wait for a probe's version answer is a single-shot timer on that thread rather than a blocking
/// or nested event loop: the user-interface thread never waits on a silent port, and the comms
/// thread keeps reading while the probe is out. The user interface reaches the session only
/// through queued signals (see PumpSessionController).
class PumpSession final : public QObject {
    Q_OBJECT

public:
    static constexpr int kScanIntervalMs = 500;
    static constexpr int kProbeWaitMs = 200;
    static constexpr int kKeepAliveIntervalMs = 1000;
    static constexpr std::uint16_t kSessionStartValue = 1000;

    /// `portNames`: the ports to rotate over, in this order; empty means every port the platform
    /// lists at each tick.
    explicit PumpSession(ProtocolCommsInterface& comms, QStringList portNames = {},
                         QObject* parent = nullptr);

    bool isConnected() const { return mConnected; }
    QString versionText() const { return mVersionText; }

signals:
    void pumpConnectionChanged(bool connected);
    void pumpConnectionStatus(QString status);
    void protocolVersionChanged(halyard::SemanticVersion protocolVersion);
    /// Why the scanned ports cannot be opened, in plain words with what fixes it (see
    /// PortProblems); empty once they open or a pump is connected.
    void portProblemChanged(QString problem);

public slots:
    void startScanning();
    void stopScanning();
    void disconnectPump();
    void onKeepAliveTimer();
    void protocolObject_getVersionResponse(halyard::SemanticVersion version);
    void protocolObject_KeepAliveReceived();
    void protocolObject_SessionStarted();
    void protocolObject_SessionStopped();
    void protocolObject_sessionStartTimeout();
    void protocolObject_sessionStopTimeout();
    void protocolObject_keepAliveTimeout();
    void protocolErrorHandler(halyard::protocol::message::Status status);
    void transportErrorHandler(const QString& error);

private slots:
    void CheckNextPort();
    void onProbeTimeout();

private:
    QStringList PortsToTry() const;
    void FinishProbe();
    void DisconnectAndRescan();
    void ReportDisconnected();
    void ReportPortProblem();
    /// Counts a time-out of one request: true while it should be sent again.
    bool RetryAfterTimeout(std::uint64_t& attempts, const logger::Site& site, const char* retryText,
                           const char* giveUpText);

    ProtocolCommsInterface& mComms;
    objects::ProtocolObject& mProtocolObject;
    QStringList mPortNames;
    QTimer mKeepAliveTimer;
    QTimer mScanTimer;
    QTimer mProbeTimer;
    quint32 mPortIndex = 0;
    bool mVersionReceived = false;
    bool mProbing = false;
    QString mProbePort;
    QElapsedTimer mProbeClock;
    qint64 mRoundTripMs = 0;
    QString mVersionText;
    std::uint64_t mStartAttempts = 0;
    std::uint64_t mStopAttempts = 0;
    std::uint64_t mKeepAliveMisses = 0;
    bool mConnected = false;
    PortProblems mPortProblems;
    QString mPortProblem;
};

} // namespace communication
