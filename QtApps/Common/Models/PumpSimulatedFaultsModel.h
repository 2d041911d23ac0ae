#pragma once

#include "FaultRowsModel.h"

#include "QtApps/Common/Controllers/QmlSingleton.h"

#include <QtQml/qqmlregistration.h>

namespace communication {
class PumpSessionController;
}

namespace models::faults {

/// The faults a technician can make the pump raise on purpose ("cpp.PumpSimulatedFaultsModel",
/// the override screen's "Test Faults"). A row turns active only when the pump confirms that it
/// raised the fault, and inactive when a later fault word no longer has it; a pump that is no
/// longer connected resets every row. Its rows expose "name", "active" (the pump confirmed
/// raising the fault and still reports it) and "title".
class PumpSimulatedFaultsModel final
    : public FaultRowsModel,
      public communication::QmlSingleton<PumpSimulatedFaultsModel> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    PumpSimulatedFaultsModel(communication::PumpFaults& faults,
                             const communication::PumpSessionController& session, QObject* parent);

    /// Asks the pump to raise the fault of row `index` (motor-fault type index + 1); the row
    /// follows once the pump confirms. An index outside 0..13 is logged and sends nothing.
    /// Returns whether the request was handed to the link.
    Q_INVOKABLE bool enableFault(int index);

public slots:
    /// The pump raised fault `type` (1..14): its row turns active. Type 0 changes nothing.
    void onSetFaultAck(communication::MotorFaultType type);
    /// Resets every row once the pump is no longer connected; nothing while it is.
    void onPumpConnectedChanged();
    /// Clears the rows of faults the pump no longer reports; never sets a row.
    void updateFaults(const QList<communication::PumpFaults::FaultStatus>& faultList);

private:
    communication::PumpFaults& mFaults;
    const communication::PumpSessionController& mSession;
};

} // namespace models::faults
