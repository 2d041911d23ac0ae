#pragma once

#include "PumpFaultsModelsCommon.h"

#include <QAbstractListModel>

namespace models::faults {

/// The pump's faults as the pump reports them: fourteen rows in fault-index order, each with
/// its name and whether it is active, and `faultActive` for "any fault at all". It changes only
/// when the pump reports its fault word; a lost connection leaves the last report standing.
///
/// Roles (the numbers are the role values themselves, not offsets from Qt::UserRole):
///   0 "name"    the fault's translated name (QString)
///   1 "active"  whether the pump reports it (bool)
class PumpFaultsModel final : public QAbstractListModel, public PumpFaultsModelsCommon {
    Q_OBJECT
    Q_PROPERTY(bool faultActive READ faultActive NOTIFY faultActiveChanged)

public:
    enum Role { NameRole = 0, ActiveRole = 1 };

    /// Follows `faults` (on the comms thread) through a queued connection.
    PumpFaultsModel(communication::PumpFaults& faults, QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    bool faultActive() const { return mFaultActive; }

signals:
    /// Emitted after every report of the pump, whether or not anything changed.
    void faultActiveChanged();

public slots:
    /// Takes the pump's latest report: a row whose state changed gets its own dataChanged.
    /// Statuses with an index outside the table are ignored.
    void updateFaults(const QList<communication::PumpFaults::FaultStatus>& faultList);

private:
    QList<FaultRow> mRows = inactiveRows();
    bool mFaultActive = false;
};

} // namespace models::faults
