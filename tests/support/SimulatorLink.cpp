#include "SimulatorLink.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QEventLoop>
#include <QTimer>

using communication::objects::ProtocolObject;

namespace testsupport {

namespace {
constexpr uint16_t kKeepAliveMs = 1000;
constexpr int kStartTimeoutMs = 5000;
} // namespace

SimulatorLink::SimulatorLink(const QStringList& simulatorArguments, Values values)
    : mArguments(simulatorArguments)
    , mComms(new communication::ProtocolComms(mRequestLog)) {
    if (values == Values::With) {
        // A child of the comms object, so it moves to the comms thread with it.
        mValues = new communication::PumpValues(*mComms);
    }
    mThread.setObjectName(QStringLiteral("ProtocolCommsThread"));
    mComms->moveToThread(&mThread);
    mThread.start();
}

SimulatorLink::~SimulatorLink() {
    // Deleted on its own thread, as at the application's exit; the thread runs the deferred
    // deletion as it finishes.
    runOnCommsThread([this] { mComms->deleteLater(); });
    mThread.quit();
    mThread.wait();
}

bool SimulatorLink::start(QString& error, Session session) {
    mSimulator.process().setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString port = mSimulator.start(
        QStringList{QStringLiteral("--pty"), QStringLiteral("--no-console")} + mArguments);
    if (port.isEmpty()) {
        error = QStringLiteral("the pump simulator did not start");
        return false;
    }
    if (!send([this, &port] { return mComms->openPort(port); })) {
        error = QStringLiteral("could not open the simulator's port %1").arg(port);
        return false;
    }
    if (session == Session::Open && !startSession()) {
        error = QStringLiteral("the simulated pump started no session");
        return false;
    }
    return true;
}

bool SimulatorLink::startSession() {
    QEventLoop waiting;
    send([this, &waiting] {
        ProtocolObject& protocol = proxy<ProtocolObject>();
        QObject::connect(&protocol, &ProtocolObject::setStartSessionResponse, mComms,
                         [this] { mSessionStarted = true; });
        QObject::connect(&protocol, &ProtocolObject::setStartSessionResponse, &waiting,
                         &QEventLoop::quit);
        QObject::connect(&protocol, &ProtocolObject::sessionStartTimeout, mComms,
                         [&protocol] { protocol.RequestStartSession(kKeepAliveMs); });
        auto* keepAlive = new QTimer(mComms);
        QObject::connect(keepAlive, &QTimer::timeout, mComms, [this, &protocol] {
            if (mSessionStarted) {
                protocol.RequestKeepAlive();
            }
        });
        keepAlive->start(kKeepAliveMs);
        return protocol.RequestStartSession(kKeepAliveMs);
    });
    QTimer::singleShot(kStartTimeoutMs, &waiting, &QEventLoop::quit);
    if (!mSessionStarted) {
        waiting.exec();
    }
    return mSessionStarted;
}

} // namespace testsupport
