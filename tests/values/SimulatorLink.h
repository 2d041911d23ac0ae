#pragma once

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QProcess>
#include <QStringList>
#include <QThread>

#include <atomic>

/// The application's link stack and its pump values, as start-up builds them, against the pump
/// simulator on a pseudo-terminal: the comms object, with the values, runs on its own
/// "ProtocolCommsThread", and the caller's thread plays the user-interface thread.
class SimulatorLink {
public:
    /// `simulatorArguments` come after "--pty --no-console".
    explicit SimulatorLink(const QStringList& simulatorArguments);
    ~SimulatorLink();

    SimulatorLink(const SimulatorLink&) = delete;
    SimulatorLink& operator=(const SimulatorLink&) = delete;

    enum class Session { Open, None };
    /// Starts the simulator, opens its port on the comms thread and, unless told not to, opens
    /// a session, which the link then keeps alive with a ping every second (the pump streams
    /// only in a session); false with `error` set if any of it fails.
    bool start(QString& error, Session session = Session::Open);

    communication::PumpValues& values() { return *mValues; }
    QThread& commsThread() { return mThread; }
    /// Runs `function` on the comms thread and waits for it.
    template <typename Function>
    void runOnCommsThread(Function function) {
        QMetaObject::invokeMethod(mComms, function, Qt::BlockingQueuedConnection);
    }

private:
    bool startSession();

    QStringList mArguments;
    QProcess mSimulator;
    communication::ProtocolRequestLogWrapper mRequestLog;
    communication::ProtocolComms* mComms;
    communication::PumpValues* mValues;
    QThread mThread;
    std::atomic<bool> mSessionStarted{false};
};
