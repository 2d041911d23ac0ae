#include "PumpSimulatedFaultsModel.h"

#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Logger/Log.h"

namespace models::faults {

using communication::MotorFaultType;
using communication::PumpFaults;

PumpSimulatedFaultsModel::PumpSimulatedFaultsModel(
    PumpFaults& faults, const communication::PumpSessionController& session, QObject* parent)
    : QAbstractListModel(parent)
    , mFaults(faults)
    , mSession(session) {
    resetRows();
    connect(&faults, &PumpFaults::setFaultAck, this, &PumpSimulatedFaultsModel::onSetFaultAck,
            Qt::QueuedConnection);
    connect(&faults, &PumpFaults::faultsChanged, this, &PumpSimulatedFaultsModel::updateFaults,
            Qt::QueuedConnection);
    connect(&session, &communication::PumpSessionController::connectedStatusChanged, this,
            &PumpSimulatedFaultsModel::onPumpConnectedChanged);
}

int PumpSimulatedFaultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

QVariant PumpSimulatedFaultsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const FaultRow& row = mRows.at(index.row());
    switch (role) {
    case NameRole:
        return row.name;
    case ActiveRole:
        return row.active;
    case TitleRole:
        return row.title;
    default:
        return {};
    }
}

QHash<int, QByteArray> PumpSimulatedFaultsModel::roleNames() const {
    return {{NameRole, "name"}, {ActiveRole, "active"}, {TitleRole, "title"}};
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
    const int row = static_cast<int>(code - 1);
    mRows[row].active = true;
    emit dataChanged(index(row), index(row), {});
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
        const int row = static_cast<int>(status.index);
        if (mRows[row].active) {
            mRows[row].active = false;
            emit dataChanged(index(row), index(row), {});
        }
    }
}

// The table never changes its length, so the rows are rebuilt in place. The change notice
// names row 14, one past the last row, as this model always has; views clip it to their rows.
void PumpSimulatedFaultsModel::resetRows() {
    mRows = inactiveRows();
    emit dataChanged(index(0), createIndex(kFaultCount, 0), {});
}

} // namespace models::faults
