#pragma once

#include "Command.h"

namespace cli {

/// `clear-log`: clears the pump's event log through the log model, as the maintenance tab does.
/// The pump's acknowledgement is followed by a fresh read of the log; the command ends with it,
/// printing "Log cleared", or fails when the pump does not take the clear.
class ClearLogCommand final : public Command {
    Q_OBJECT

public:
    explicit ClearLogCommand(CommandContext& context, QObject* parent = nullptr)
        : Command(QStringLiteral("clear-log"), context, parent) {}

protected:
    void run() override;
};

} // namespace cli
