#pragma once

#include "SimulatorProcess.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"

#include <QStringList>
#include <QThread>

#include <memory>

namespace common {
class MiniZipReader;
}
namespace communication {
class PumpDetailsController;
class PumpSession;
class PumpSessionController;
class PumpValues;
} // namespace communication
namespace firmwareUpdate {
class FirmwareUpdateController;
}

namespace testsupport {

/// The application's firmware-update stack as start-up builds it, against the pump simulator on
/// a pseudo-terminal: the comms object with the proxies, the pump values, the zip reader and the
/// pump session (which scans only the simulator's port) on the "ProtocolCommsThread", and the
/// session and firmware-update controllers on the caller's thread, which plays the
/// user-interface thread.
class FirmwareUpdateRig {
public:
    /// `simulatorArguments` come after "--pty --no-console".
    explicit FirmwareUpdateRig(const QStringList& simulatorArguments);
    ~FirmwareUpdateRig();

    FirmwareUpdateRig(const FirmwareUpdateRig&) = delete;
    FirmwareUpdateRig& operator=(const FirmwareUpdateRig&) = delete;

    /// Starts the simulator, builds the stack, starts scanning and waits until the pump is
    /// connected; false with `error` set if any of it fails.
    bool start(QString& error);

    firmwareUpdate::FirmwareUpdateController& controller() { return *mController; }
    communication::PumpSessionController& session() { return *mSessionController; }
    communication::ProtocolComms& comms() { return *mComms; }
    communication::PumpValues& values() { return *mValues; }

    /// Runs `function` on the comms thread and waits for it.
    template <typename Function>
    void runOnCommsThread(Function function) {
        QMetaObject::invokeMethod(mComms, function, Qt::BlockingQueuedConnection);
    }

private:
    QStringList mArguments;
    SimulatorProcess mSimulator;
    communication::ProtocolRequestLogWrapper mRequestLog;
    communication::ProtocolComms* mComms = nullptr;
    communication::PumpValues* mValues = nullptr;
    common::MiniZipReader* mReader = nullptr;
    communication::PumpSession* mPumpSession = nullptr;
    std::unique_ptr<communication::PumpSessionController> mSessionController;
    std::unique_ptr<communication::PumpDetailsController> mDetails;
    std::unique_ptr<firmwareUpdate::FirmwareUpdateController> mController;
    QThread mThread;
};

} // namespace testsupport
