#pragma once

#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"
#include "QtApps/Common/Logger/LogSetup.h"

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

/// Everything behind the screens, built once by the entry routine (of the application, and of
/// the command line, which drives the same controllers and models without screens). It is itself
/// the link's request log, so the log exists before anything that sends. The comms object, with
/// everything below it (the proxies and the pump values, its children), runs on
/// "ProtocolCommsThread"; the registries and the logger stay on the main thread.
///
/// On aboutToQuit the comms object, the registries and the logger delete themselves in their own
/// threads. The core's destructor then lets the comms thread finish that deletion (which writes
/// the last queued frames, such as a stop-session request) and end, so that nothing runs there
/// while the process tears down.
class ApplicationCore final : public communication::ProtocolRequestLogWrapper {
public:
    /// `portNames`: the ports the session scans (empty: every port the platform lists).
    /// `consoleEcho`: where log lines may appear besides the log file. `recordPath`: a file to
    /// record the session into; empty to follow the recording setting.
    ApplicationCore(QCoreApplication& application, const QStringList& portNames,
                    logger::ConsoleEcho consoleEcho = logger::ConsoleEcho::AsConfigured,
                    const QString& recordPath = QString());
    ~ApplicationCore() override;
    ApplicationCore(const ApplicationCore&) = delete;
    ApplicationCore& operator=(const ApplicationCore&) = delete;

    /// The parts, for a caller that drives them without screens. Each lives until the
    /// application's aboutToQuit; the comms object and the values are used only on their own
    /// thread (queued calls), the registries on the main thread.
    communication::ProtocolComms& comms() const;
    communication::PumpValues& values() const;
    communication::ControllerRegistry& controllers() const;
    models::ModelRegistry& models() const;

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
