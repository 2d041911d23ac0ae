#include "PumpSession.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/SendLimit.h"
#include "QtApps/Common/Logger/Log.h"

#include <QSerialPortInfo>

namespace communication {

using objects::ProtocolObject;

namespace {
constexpr QLatin1String kConnected("Connected.");
constexpr QLatin1String kDisconnected("Disconnected.");
constexpr QLatin1String kScanning("Scanning...");
} // namespace

PumpSession::PumpSession(ProtocolCommsInterface& comms, QStringList portNames, QObject* parent)
    : QObject(parent)
    , mComms(comms)
    , mProtocolObject(comms.protocolObjects().get<ProtocolObject>())
    , mPortNames(std::move(portNames))
    , mKeepAliveTimer(this)
    , mScanTimer(this)
    , mProbeTimer(this) {
    mProbeTimer.setSingleShot(true);
    connect(&mComms, &ProtocolCommsInterface::protocolError, this,
            &PumpSession::protocolErrorHandler);
    connect(&mComms, &ProtocolCommsInterface::transportError, this,
            &PumpSession::transportErrorHandler);
    // Emitted from within openPort, on this thread.
    connect(&mComms, &ProtocolCommsInterface::portOpenFailed, this,
            [this](const QString& portName, const QString& reason) {
                mPortProblems.failed(portName, reason);
            });
    connect(&mKeepAliveTimer, &QTimer::timeout, this, &PumpSession::onKeepAliveTimer);
    connect(&mScanTimer, &QTimer::timeout, this, &PumpSession::CheckNextPort);
    connect(&mProbeTimer, &QTimer::timeout, this, &PumpSession::onProbeTimeout);
    connect(&mProtocolObject, &ProtocolObject::getKeepAliveResponse, this,
            &PumpSession::protocolObject_KeepAliveReceived);
    connect(&mProtocolObject, &ProtocolObject::setStartSessionResponse, this,
            &PumpSession::protocolObject_SessionStarted);
    connect(&mProtocolObject, &ProtocolObject::setStopSessionResponse, this,
            &PumpSession::protocolObject_SessionStopped);
    connect(&mProtocolObject, &ProtocolObject::sessionStartTimeout, this,
            &PumpSession::protocolObject_sessionStartTimeout);
    connect(&mProtocolObject, &ProtocolObject::sessionStopTimeout, this,
            &PumpSession::protocolObject_sessionStopTimeout);
    connect(&mProtocolObject, &ProtocolObject::keepAliveTimeout, this,
            &PumpSession::protocolObject_keepAliveTimeout);
    connect(&mProtocolObject, &ProtocolObject::getVersionResponse, this,
            &PumpSession::protocolObject_getVersionResponse);
}

QStringList PumpSession::PortsToTry() const {
    if (!mPortNames.isEmpty()) {
        return mPortNames;
    }
    QStringList names;
    const auto ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports) {
        names << port.portName();
    }
    return names;
}

void PumpSession::CheckNextPort() {
    if (mProbing) {
        return;
    }
    const QStringList ports = PortsToTry();
    mPortProblems.keepOnly(ports);
    if (ports.isEmpty()) {
        ReportPortProblem();
        return;
    }
    const auto count = static_cast<quint32>(ports.size());
    const QString& port = ports.at(static_cast<qsizetype>(mPortIndex % count));
    ++mPortIndex;
    const bool opened = mComms.openPort(port);
    if (opened) {
        mPortProblems.opened(port);
    }
    ReportPortProblem();
    if (!opened) {
        return;
    }
    if (!mProtocolObject.RequestVersion()) {
        BWL_LOG_INFO("CheckNextPort", QStringLiteral("Cannot send ping, disconnecting"));
        mComms.closePort();
        return;
    }
    mProbePort = port;
    mProbeClock.restart();
    mProbing = true;
    // A version that arrived after an earlier probe gave up still counts: this probe succeeds
    // at once (only a successful probe clears the flag).
    if (mVersionReceived) {
        FinishProbe();
        return;
    }
    mProbeTimer.start(kProbeWaitMs);
}

void PumpSession::onProbeTimeout() {
    if (!mProbing) {
        return;
    }
    mProbing = false;
    BWL_LOG_INFO("onProbeTimeout", QStringLiteral("%1response timeout").arg(mProbePort));
    mComms.closePort();
}

void PumpSession::FinishProbe() {
    mProbeTimer.stop();
    mProbing = false;
    BWL_LOG_INFO("FinishProbe", QStringLiteral("%1 %2 received after %3 ms")
                                    .arg(mProbePort, mVersionText)
                                    .arg(mRoundTripMs));
    mVersionReceived = false;
    mConnected = true;
    mScanTimer.stop();
    mPortProblems.clear();
    ReportPortProblem();
    if (!mProtocolObject.RequestStartSession(kSessionStartValue)) {
        BWL_LOG_INFO("FinishProbe", QStringLiteral("connectPump, can't start session"));
        mComms.closePort();
        mConnected = false;
        ReportDisconnected();
    }
}

void PumpSession::protocolObject_getVersionResponse(halyard::SemanticVersion version) {
    mRoundTripMs = mProbeClock.isValid() ? mProbeClock.elapsed() : 0;
    mVersionText = QStringLiteral("Protocol v%1.%2.%3")
                       .arg(version.major)
                       .arg(version.minor)
                       .arg(version.patch);
    mVersionReceived = true;
    emit protocolVersionChanged(version);
    if (mProbing) {
        FinishProbe();
    }
}

void PumpSession::protocolObject_SessionStarted() {
    BWL_LOG_INFO("protocolObject_SessionStarted", QStringLiteral("protocolObject_SessionStarted"));
    emit pumpConnectionChanged(true);
    emit pumpConnectionStatus(kConnected);
    mStartAttempts = 0;
    mKeepAliveMisses = 0;
    mKeepAliveTimer.start(kKeepAliveIntervalMs);
}

void PumpSession::onKeepAliveTimer() {
    if (!mProtocolObject.RequestKeepAlive()) {
        BWL_LOG_INFO("onKeepAliveTimer",
                     QStringLiteral("onKeepAliveTimer, can't send ping, disconnecting"));
        DisconnectAndRescan();
    }
}

void PumpSession::protocolObject_KeepAliveReceived() {
    mKeepAliveMisses = 0;
}

bool PumpSession::RetryAfterTimeout(std::uint64_t& attempts, const logger::Site& site,
                                    const char* retryText, const char* giveUpText) {
    if (kRequestSendLimit.countTimeout(attempts)) {
        logger::write(logger::Level::Info, site, QString::fromLatin1(retryText));
        return true;
    }
    logger::write(logger::Level::Info, site, QString::fromLatin1(giveUpText));
    DisconnectAndRescan();
    return false;
}

void PumpSession::protocolObject_keepAliveTimeout() {
    if (RetryAfterTimeout(mKeepAliveMisses, "protocolObject_keepAliveTimeout",
                          "keepAliveTimeout, no response, retrying",
                          "keepAliveTimeout, no response, disconnecting")) {
        mProtocolObject.RequestKeepAlive();
    }
}

void PumpSession::protocolObject_sessionStartTimeout() {
    if (RetryAfterTimeout(mStartAttempts, "protocolObject_sessionStartTimeout",
                          "sessionStartTimeout, no response, retrying",
                          "sessionStartTimeout, no response, disconnecting")) {
        mProtocolObject.RequestStartSession(kSessionStartValue);
    }
}

void PumpSession::protocolObject_sessionStopTimeout() {
    if (RetryAfterTimeout(mStopAttempts, "protocolObject_sessionStopTimeout",
                          "sessionStopTimeout, no response, retrying",
                          "sessionStopTimeout, no response, disconnecting")) {
        mProtocolObject.RequestStopSession();
    }
}

void PumpSession::disconnectPump() {
    if (!mConnected) {
        return;
    }
    BWL_LOG_INFO("disconnectPump", QStringLiteral("disconnectPump"));
    if (!mProtocolObject.RequestStopSession()) {
        BWL_LOG_INFO("disconnectPump", QStringLiteral("RequestStopSession, can't stop session"));
        mComms.closePort();
        mConnected = false;
        ReportDisconnected();
    }
}

void PumpSession::protocolObject_SessionStopped() {
    BWL_LOG_INFO("protocolObject_SessionStopped", QStringLiteral("protocolObject_SessionStopped"));
    DisconnectAndRescan();
}

void PumpSession::ReportDisconnected() {
    emit pumpConnectionChanged(false);
    emit pumpConnectionStatus(kDisconnected);
}

void PumpSession::ReportPortProblem() {
    QString problem = mPortProblems.text();
    if (problem == mPortProblem) {
        return;
    }
    if (!problem.isEmpty()) {
        BWL_LOG_WARN("ReportPortProblem", problem);
    }
    mPortProblem = problem;
    emit portProblemChanged(std::move(problem));
}

void PumpSession::DisconnectAndRescan() {
    mKeepAliveTimer.stop();
    mComms.closePort();
    ReportDisconnected();
    mStartAttempts = 0;
    mStopAttempts = 0;
    mConnected = false;
    mKeepAliveMisses = 0;
    mComms.clearRequestLog();
    mScanTimer.start(kScanIntervalMs);
    emit pumpConnectionStatus(kScanning);
}

void PumpSession::startScanning() {
    if (mConnected) {
        DisconnectAndRescan();
    }
    mComms.clearRequestLog();
    mScanTimer.start(kScanIntervalMs);
    emit pumpConnectionStatus(kScanning);
}

void PumpSession::stopScanning() {
    mScanTimer.stop();
    emit pumpConnectionStatus(kDisconnected);
}

void PumpSession::protocolErrorHandler(halyard::protocol::message::Status status) {
    BWL_LOG_INFO("protocolErrorHandler",
                 QStringLiteral("Protocol error %1")
                     .arg(QString::fromLatin1(halyard::protocol::message::StatusName(status))));
}

void PumpSession::transportErrorHandler(const QString& error) {
    BWL_LOG_INFO("transportErrorHandler", QStringLiteral("Transport error:%1").arg(error));
}

} // namespace communication
