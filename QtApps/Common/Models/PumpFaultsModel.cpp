#include "PumpFaultsModel.h"

namespace models::faults {

PumpFaultsModel::PumpFaultsModel(communication::PumpFaults& faults, QObject* parent)
    : QAbstractListModel(parent) {
    connect(&faults, &communication::PumpFaults::faultsChanged, this,
            &PumpFaultsModel::updateFaults, Qt::QueuedConnection);
}

int PumpFaultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

QVariant PumpFaultsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const FaultRow& row = mRows.at(index.row());
    switch (role) {
    case NameRole:
        return row.name;
    case ActiveRole:
        return row.active;
    default:
        return {};
    }
}

QHash<int, QByteArray> PumpFaultsModel::roleNames() const {
    return {{NameRole, "name"}, {ActiveRole, "active"}};
}

void PumpFaultsModel::updateFaults(const QList<communication::PumpFaults::FaultStatus>& faultList) {
    mFaultActive = false;
    for (const auto& status : faultList) {
        if (!isFaultIndex(status.index)) {
            continue;
        }
        const int row = static_cast<int>(status.index);
        if (mRows[row].active != status.active) {
            mRows[row].active = status.active;
            emit dataChanged(index(row), index(row), {});
        }
        if (status.active) {
            mFaultActive = true;
        }
    }
    emit faultActiveChanged();
}

} // namespace models::faults
