#include "PumpFaultsModel.h"

namespace models::faults {

PumpFaultsModel::PumpFaultsModel(communication::PumpFaults& faults, QObject* parent)
    : FaultRowsModel(Title::Hidden, parent) {
    connect(&faults, &communication::PumpFaults::faultsChanged, this,
            &PumpFaultsModel::updateFaults, Qt::QueuedConnection);
}

void PumpFaultsModel::updateFaults(const QList<communication::PumpFaults::FaultStatus>& faultList) {
    mFaultActive = false;
    for (const auto& status : faultList) {
        if (!isFaultIndex(status.index)) {
            continue;
        }
        setRowActive(static_cast<int>(status.index), status.active);
        if (status.active) {
            mFaultActive = true;
        }
    }
    emit faultActiveChanged();
}

} // namespace models::faults
