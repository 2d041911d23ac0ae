#pragma once

#include "Command.h"

#include <QTimer>

namespace cli {

/// `clear-faults`: acknowledges the pump's faults, as the status panel's Clear Faults button
/// does, and follows the fault word: the first report without an active fault ends it with
/// "Faults cleared". A fault whose cause persists comes straight back; one still active after
/// kSettleMs fails the command, naming the faults.
class ClearFaultsCommand final : public Command {
    Q_OBJECT

public:
    /// Longer than the fault word's heartbeat (1 s), so that a report made after the
    /// acknowledgement is sure to come in.
    static constexpr int kSettleMs = 2500;

    explicit ClearFaultsCommand(CommandContext& context, QObject* parent = nullptr);

protected:
    void run() override;

private:
    void onFaultsReported();
    void onSettled();

    bool mAcknowledged = false;
    QTimer mSettle;
};

} // namespace cli
