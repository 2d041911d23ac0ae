#include "PumpSimulatedFaultsModel.h"

#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Logger/Log.h"

namespace models::faults {

using communication::MotorFaultType;
using communication::PumpFaults;

PumpSimulatedFaultsModel::PumpSimulatedFaultsModel(
    PumpFaults& faults, const communication::PumpSessionController& session, QObject* parent)
    : FaultRowsModel(Title::Exposed, parent)
    , mFaults(faults)
    , mSession(session) {
    connect(&faults, &PumpFaults::setFaultAck, this, &PumpSimulatedFaultsModel::onSetFaultAck,
            Qt::QueuedConnection);
    connect(&faults, &PumpFaults::faultsChanged, this, &PumpSimulatedFaultsModel::updateFaults,
            Qt::QueuedConnection);
    connect(&session, &communication::PumpSessionController::connectedStatusChanged, this,
            &PumpSimulatedFaultsModel::onPumpConnectedChanged);
}

bool PumpSimulatedFaultsModel::enableFault(int index) {
    if (index < 0 || !isFaultIndex(static_cast<uint>(index))) {
        BWL_LOG_WARN("enableFault", QStringLiteral("enableFault: no fault %1").arg(index));
        return false;
    }
    const auto type = static_cast<MotorFaultType>(index + 1);
    return communication::callQueued(mFaults, &PumpFaults::set, type);
}

void PumpSimulatedFaultsModel::onSetFaultAck(MotorFaultType type) {
    const auto code = static_cast<uint>(type);
    if (code == 0 || !isFaultIndex(code - 1)) {
        return;
    }
    setRowActive(static_cast<int>(code - 1), true);
}

void PumpSimulatedFaultsModel::onPumpConnectedChanged() {
    if (!mSession.pumpConnected()) {
        resetRows();
    }
}

void PumpSimulatedFaultsModel::updateFaults(const QList<PumpFaults::FaultStatus>& faultList) {
    for (const auto& status : faultList) {
        if (status.active || !isFaultIndex(status.index)) {
            continue;
        }
        setRowActive(static_cast<int>(status.index), false);
    }
}

} // namespace models::faults
