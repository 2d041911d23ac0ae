#pragma once

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"
#include "tests/simulator/SimulatorProcess.h"

#include <QStringList>
#include <QThread>

#include <atomic>

/// The application's link as start-up builds it, without the values above it: the comms object
/// with its sixteen proxies runs on its own "ProtocolCommsThread" against the pump simulator on
/// a pseudo-terminal, and the caller's thread plays the user-interface thread. Only the test
/// talks to the proxies, so every answer a test sees is one it asked for.
class ObjectsLink {
public:
    /// `simulatorArguments` come after "--pty --no-console".
    explicit ObjectsLink(const QStringList& simulatorArguments);
    ~ObjectsLink();

    ObjectsLink(const ObjectsLink&) = delete;
    ObjectsLink& operator=(const ObjectsLink&) = delete;

    /// Starts the simulator, opens its port on the comms thread and opens a session, which the
    /// link then keeps alive with a ping every second (the pump streams only in a session);
    /// false with `error` set if any of it fails.
    bool start(QString& error);

    /// A proxy, for connecting to its signals; call its requests through `send`.
    template <typename Proxy>
    Proxy& proxy() const {
        return mComms->protocolObjects().get<Proxy>();
    }

    /// Runs `request` on the comms thread, where the proxies send, and returns what it returned
    /// (whether the request could be queued).
    template <typename Request>
    bool send(Request request) {
        bool sent = false;
        QMetaObject::invokeMethod(
            mComms, [&sent, &request] { sent = request(); }, Qt::BlockingQueuedConnection);
        return sent;
    }

private:
    bool startSession();

    QStringList mArguments;
    simtest::SimulatorProcess mSimulator;
    communication::ProtocolRequestLogWrapper mRequestLog;
    communication::ProtocolComms* mComms;
    QThread mThread;
    std::atomic<bool> mSessionStarted{false};
};
