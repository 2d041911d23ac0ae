#include "FaultRowsModel.h"

namespace models::faults {

FaultRowsModel::FaultRowsModel(Title title, QObject* parent)
    : QAbstractListModel(parent)
    , mTitle(title) {}

int FaultRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

QVariant FaultRowsModel::data(const QModelIndex& index, int role) const {
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
        return mTitle == Title::Exposed ? QVariant(row.title) : QVariant();
    default:
        return {};
    }
}

QHash<int, QByteArray> FaultRowsModel::roleNames() const {
    QHash<int, QByteArray> names{{NameRole, "name"}, {ActiveRole, "active"}};
    if (mTitle == Title::Exposed) {
        names.insert(TitleRole, "title");
    }
    return names;
}

void FaultRowsModel::setRowActive(int row, bool active) {
    if (mRows[row].active != active) {
        mRows[row].active = active;
        emit dataChanged(index(row), index(row), {});
    }
}

// The table never changes its length, so the rows are rebuilt in place. The change notice
// names row 14, one past the last row, as the simulated-faults model always has; views clip it
// to their rows.
void FaultRowsModel::resetRows() {
    mRows = inactiveRows();
    emit dataChanged(index(0), createIndex(kFaultCount, 0), {});
}

} // namespace models::faults
