#pragma once

#include "Command.h"

namespace cli {

/// `save-settings FILE`: the settings save of the maintenance tab, through the settings
/// controller; prints its result text ("Success"), or fails with it.
class SaveSettingsCommand final : public Command {
    Q_OBJECT

public:
    explicit SaveSettingsCommand(CommandContext& context, QObject* parent = nullptr)
        : Command(QStringLiteral("save-settings"), context, parent) {}

    /// `path` as the file dialogs give it: a "file:" URL of the absolute path (relative paths
    /// are taken from the working folder).
    static QString fileUrl(const QString& path);

protected:
    void run() override;
};

} // namespace cli
