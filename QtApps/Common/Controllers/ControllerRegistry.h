#pragma once

#include <QObject>
#include <QStringList>

class QCoreApplication;

namespace communication {

class ProtocolComms;
class PumpSession;
class PumpSessionController;

/// Creates the controllers the screens talk to and registers each as a QML singleton in a module
/// of its own, "cpp." followed by its type name, version 1.0. It is their QObject parent, lives on
/// the main thread and deletes itself when the application is about to quit.
///
/// The pump session it drives is created as a child of the comms object, so that it moves to the
/// comms thread with the link (see PumpSession).
class ControllerRegistry final : public QObject {
    Q_OBJECT

public:
    /// `portNames`: the serial ports the session scans; empty means every port the platform lists.
    ControllerRegistry(ProtocolComms& comms, const QStringList& portNames,
                       QCoreApplication& application);

    PumpSessionController& pumpSessionController() const { return *mPumpSessionController; }

private:
    PumpSession* mPumpSession;
    PumpSessionController* mPumpSessionController;
};

} // namespace communication
