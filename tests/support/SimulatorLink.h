#pragma once

#include "SimulatorProcess.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"

#include <QStringList>
#include <QThread>

#include <atomic>

namespace communication {
class PumpValues;
}

namespace testsupport {

/// The application's link as start-up builds it, against the pump simulator on a
/// pseudo-terminal: the comms object with its proxies (and, when asked for, the pump values on
/// it) runs on its own "ProtocolCommsThread", and the caller's thread plays the user-interface
/// thread. Without the values only the test talks to the proxies, so every answer a test sees
/// is one it asked for.
class SimulatorLink {
public:
    enum class Values { Without, With };
    enum class Session { Open, None };

    /// `simulatorArguments` come after "--pty --no-console".
    explicit SimulatorLink(const QStringList& simulatorArguments, Values values = Values::Without);
    ~SimulatorLink();

    SimulatorLink(const SimulatorLink&) = delete;
    SimulatorLink& operator=(const SimulatorLink&) = delete;

    /// Starts the simulator, opens its port on the comms thread and, unless told not to, opens
    /// a session, which the link then keeps alive with a ping every second (the pump streams
    /// only in a session); false with `error` set if any of it fails.
    bool start(QString& error, Session session = Session::Open);

    /// The pump values; only when built `Values::With`.
    communication::PumpValues& values() { return *mValues; }
    /// A proxy, for connecting to its signals; call its requests through `send`.
    template <typename Proxy>
    Proxy& proxy() const {
        return mComms->protocolObjects().get<Proxy>();
    }
    QThread& commsThread() { return mThread; }
    /// The comms object, on the comms thread: reach it only by queued calls.
    communication::ProtocolComms& comms() { return *mComms; }

    /// Runs `function` on the comms thread and waits for it.
    template <typename Function>
    void runOnCommsThread(Function function) {
        QMetaObject::invokeMethod(mComms, function, Qt::BlockingQueuedConnection);
    }
    /// Runs `request` on the comms thread, where the proxies send, and returns what it returned
    /// (whether the request could be queued).
    template <typename Request>
    bool send(Request request) {
        bool sent = false;
        runOnCommsThread([&sent, &request] { sent = request(); });
        return sent;
    }

private:
    bool startSession();

    QStringList mArguments;
    SimulatorProcess mSimulator;
    communication::ProtocolRequestLogWrapper mRequestLog;
    communication::ProtocolComms* mComms;
    communication::PumpValues* mValues = nullptr;
    QThread mThread;
    std::atomic<bool> mSessionStarted{false};
};

} // namespace testsupport
