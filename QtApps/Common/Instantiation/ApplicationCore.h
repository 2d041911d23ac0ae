#pragma once

#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"

#include <QPointer>
#include <QStringList>
#include <QThread>

class QCoreApplication;

namespace common {
class MiniZipReader;
}
namespace communication {
class ControllerRegistry;
class ProtocolComms;
class PumpValues;
} // namespace communication
namespace models {
class ModelRegistry;
}
namespace logger {
class LoggerInstantiation;
}

namespace common {

/// Everything behind the screens, built once by the entry routine. It is itself the link's
/// request log, so the log exists before anything that sends. The comms object, with everything
/// below it (the proxies and the pump values, its children), runs on "ProtocolCommsThread"; the
/// registries and the logger stay on the main thread.
///
/// On aboutToQuit the comms object, the registries and the logger delete themselves in their own
/// threads. The core's destructor then lets the comms thread finish that deletion (which writes
/// the last queued frames, such as a stop-session request) and end, so that nothing runs there
/// while the process tears down.
class ApplicationCore final : public communication::ProtocolRequestLogWrapper {
public:
    /// `portNames`: the ports to scan (none: every port listed). `recordPath`: a file to record
    /// the session into; empty to follow the recording setting.
    ApplicationCore(QCoreApplication& application, const QStringList& portNames,
                    const QString& recordPath = QString());
    ~ApplicationCore() override;
    ApplicationCore(const ApplicationCore&) = delete;
    ApplicationCore& operator=(const ApplicationCore&) = delete;

private:
    // Guarded: each deletes itself at aboutToQuit, and an event loop that never ran (a test) must
    // not leave them behind.
    QPointer<communication::ProtocolComms> mComms;
    // A child of the comms object: it moves and is deleted with it.
    QPointer<communication::PumpValues> mValues;
    // Also a child of the comms object: the firmware update reads bundles on the link's thread.
    QPointer<common::MiniZipReader> mZipReader;
    QPointer<communication::ControllerRegistry> mControllers;
    QPointer<models::ModelRegistry> mModels;
    QPointer<logger::LoggerInstantiation> mLogger;
    QThread mCommsThread;
};

} // namespace common
