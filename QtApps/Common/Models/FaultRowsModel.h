#pragma once

#include "PumpFaultsModelsCommon.h"

#include <QAbstractListModel>

namespace models::faults {

/// The list shape both fault models share: the fourteen rows of the fault table in fault-index
/// order, each with its name, its group title and whether it is active.
///
/// Roles (the numbers are the role values themselves, not offsets from Qt::UserRole):
///   0 "name"    the fault's translated name (QString)
///   1 "active"  the row's active flag (bool)
///   2 "title"   the fault's group heading, often empty (QString); only where the model
///               exposes it
class FaultRowsModel : public QAbstractListModel, public PumpFaultsModelsCommon {
    Q_OBJECT

public:
    enum Role { NameRole = 0, ActiveRole = 1, TitleRole = 2 };

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

protected:
    enum class Title { Hidden, Exposed };

    FaultRowsModel(Title title, QObject* parent);

    bool rowActive(int row) const { return mRows.at(row).active; }
    /// Sets the active flag of `row`; a row that changes gets its own dataChanged.
    void setRowActive(int row, bool active);
    /// Every row inactive again.
    void resetRows();

private:
    const Title mTitle;
    QList<FaultRow> mRows = inactiveRows();
};

} // namespace models::faults
