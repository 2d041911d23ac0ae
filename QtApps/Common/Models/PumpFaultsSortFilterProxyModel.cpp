#include "PumpFaultsSortFilterProxyModel.h"

#include "PumpFaultsModel.h"

namespace models::faults {

PumpFaultsSortFilterProxyModel::PumpFaultsSortFilterProxyModel(PumpFaultsModel& faults,
                                                               QObject* parent)
    : QSortFilterProxyModel(parent)
    , mFaults(faults) {
    setSourceModel(&faults);
    setFilterRole(PumpFaultsModel::ActiveRole);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
    connect(&faults, &PumpFaultsModel::faultActiveChanged, this,
            &PumpFaultsSortFilterProxyModel::faultActiveChanged);
}

bool PumpFaultsSortFilterProxyModel::faultActive() const {
    return mFaults.faultActive();
}

} // namespace models::faults
