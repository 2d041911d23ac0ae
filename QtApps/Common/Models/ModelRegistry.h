#pragma once

#include <QObject>

class QCoreApplication;

namespace communication {
class ControllerRegistry;
class PumpValues;
} // namespace communication

namespace models {

namespace faults {
class PumpFaultsModel;
}
namespace log {
class PumpLogModel;
}

/// Creates the list models the screens show and registers five of them as QML singletons,
/// each in a module of its own ("cpp." followed by its type name, version 1.0), in this order:
/// "cpp.PumpHeadsSortFilterProxyModel", "cpp.PumpFaultsSortFilterProxyModel", "cpp.PumpLogModel",
/// "cpp.PumpTorqueTargetsModel", "cpp.PumpSimulatedFaultsModel". The source models behind the
/// two proxies (the pump heads and the live faults) are not registered.
///
/// It is the QObject parent of every model, lives on the main thread with them and deletes
/// itself when the application is about to quit. The models reach the pump values (on the
/// comms thread) only through queued calls and queued connections; the simulated faults follow
/// the connection state of the session controller.
class ModelRegistry final : public QObject {
    Q_OBJECT

public:
    ModelRegistry(communication::PumpValues& values, communication::ControllerRegistry& controllers,
                  QCoreApplication& application);

    /// The live faults behind the fault list's filtered view.
    faults::PumpFaultsModel& pumpFaultsModel() const { return *mFaults; }
    log::PumpLogModel& pumpLogModel() const { return *mLog; }

private:
    faults::PumpFaultsModel* mFaults;
    log::PumpLogModel* mLog;
};

} // namespace models
