#pragma once

#include "FaultRowsModel.h"

namespace models::faults {

/// The pump's faults as the pump reports them: fourteen rows in fault-index order, each with
/// its name and whether it is active, and `faultActive` for "any fault at all". It changes only
/// when the pump reports its fault word; a lost connection leaves the last report standing.
/// Its rows expose "name" and "active" (whether the pump reports the fault), not the title.
class PumpFaultsModel final : public FaultRowsModel {
    Q_OBJECT
    Q_PROPERTY(bool faultActive READ faultActive NOTIFY faultActiveChanged)

public:
    /// Follows `faults` (on the comms thread) through a queued connection.
    PumpFaultsModel(communication::PumpFaults& faults, QObject* parent);

    bool faultActive() const { return mFaultActive; }

signals:
    /// Emitted after every report of the pump, whether or not anything changed.
    void faultActiveChanged();

public slots:
    /// Takes the pump's latest report: a row whose state changed gets its own dataChanged.
    /// Statuses with an index outside the table are ignored.
    void updateFaults(const QList<communication::PumpFaults::FaultStatus>& faultList);

private:
    bool mFaultActive = false;
};

} // namespace models::faults
