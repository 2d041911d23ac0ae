#pragma once

#include "Command.h"

namespace cli {

/// `info`: the pump's identity and versions as the details controller has them, one
/// "key: value" line each (keys as the controller's properties name them), or their JSON
/// fields.
class InfoCommand final : public Command {
    Q_OBJECT

public:
    explicit InfoCommand(CommandContext& context, QObject* parent = nullptr)
        : Command(QStringLiteral("info"), context, parent) {}

protected:
    void run() override;
};

} // namespace cli
