#pragma once

#include "Command.h"

#include <QStringList>

namespace models::faults {
class PumpFaultsModel;
}

namespace cli {

/// `faults`: the pump's active faults by name (the fault model's names), one a line, nothing
/// when there are none. It subscribes the fault word as the status panel does and takes the
/// pump's first report.
class FaultsCommand final : public Command {
    Q_OBJECT

public:
    explicit FaultsCommand(CommandContext& context, QObject* parent = nullptr)
        : Command(QStringLiteral("faults"), context, parent) {}

    /// The names of the faults `model` shows active, in the fault table's order.
    static QStringList activeFaults(const models::faults::PumpFaultsModel& model);

protected:
    void run() override;
};

} // namespace cli
