#pragma once

#include "QtApps/Common/Model/PumpValues/PumpFaults.h"

#include <QList>
#include <QString>

namespace models::faults {

/// One fault of the fault table, in the user's language: `title` is a group heading (empty for
/// most faults), `name` the fault's own text.
struct FaultInfo {
    QString title;
    QString name;
};

/// One row of a fault list model.
struct FaultRow {
    QString title;
    QString name;
    bool active = false;
};

/// The fault table shared by the fault list models: fourteen faults, where fault index i stands
/// for bit i + 1 of the pump's fault word and for motor-fault type i + 1. The texts are
/// translated (context "PumpFaultsModel") once, on the first lookup from any thread, and kept
/// for the life of the process.
class PumpFaultsModelsCommon {
public:
    static constexpr int kFaultCount = static_cast<int>(communication::PumpFaults::kFaultCount);

    /// The entry of a fault index; the fallback entry (empty title, "Unknown") for an index
    /// past the table. The models ask only for 0 to 13.
    static const FaultInfo& faultInfo(uint index);

    /// The fourteen rows in fault-index order, all inactive.
    static QList<FaultRow> inactiveRows();

    /// Whether `index` is a row of the table (0 to 13).
    static bool isFaultIndex(uint index) { return index < communication::PumpFaults::kFaultCount; }
};

} // namespace models::faults
