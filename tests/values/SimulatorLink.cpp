#include "SimulatorLink.h"

#include <QEventLoop>
#include <QTimer>

using communication::objects::ProtocolObject;

SimulatorLink::SimulatorLink(const QStringList& simulatorArguments)
    : mArguments(simulatorArguments)
    , mComms(new communication::ProtocolComms(mRequestLog))
    , mValues(new communication::PumpValues(*mComms)) {
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
    mSimulator.kill();
    mSimulator.waitForFinished();
}

bool SimulatorLink::start(QString& error, Session session) {
    mSimulator.setProgram(QStringLiteral(PUMP_SIMULATOR_PATH));
    mSimulator.setArguments(QStringList{QStringLiteral("--pty"), QStringLiteral("--no-console")} +
                            mArguments);
    mSimulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    mSimulator.start();
    if (!mSimulator.waitForStarted() || !mSimulator.waitForReadyRead(5000)) {
        error = QStringLiteral("the pump simulator did not start");
        return false;
    }
    while (!mSimulator.canReadLine() && mSimulator.waitForReadyRead(5000)) {
    }
    const QString port = QString::fromUtf8(mSimulator.readLine()).trimmed();
    bool opened = false;
    runOnCommsThread([this, &port, &opened] { opened = mComms->openPort(port); });
    if (!opened) {
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
    constexpr uint16_t kKeepAliveMs = 1000;
    QEventLoop waiting;
    runOnCommsThread([this, &waiting] {
        ProtocolObject& protocol = mComms->protocolObjects().get<ProtocolObject>();
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
        protocol.RequestStartSession(kKeepAliveMs);
    });
    QTimer::singleShot(5000, &waiting, &QEventLoop::quit);
    if (!mSessionStarted) {
        waiting.exec();
    }
    return mSessionStarted;
}
