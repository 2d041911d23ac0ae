#pragma once

#include "Command.h"

#include <QTimer>

namespace cli {

/// `load-settings FILE [--dry-run]`: the settings load of the maintenance tab with its preview,
/// through the settings controller. The preview comes first: a file the pump cannot take fails
/// there with the load's result text ("Incompatible pump settings", "Invalid file format"...),
/// having sent nothing. Otherwise each setting is printed as
///
///     <setting>: <pump's value> -> <file's value>     (a setting the load changes)
///     <setting>: <value> (unchanged)
///
/// and, unless --dry-run, the file is loaded and the result printed ("Success. Rebooting
/// pump..."); the command ends once the pump has been told to restart.
class LoadSettingsCommand final : public Command {
    Q_OBJECT

public:
    explicit LoadSettingsCommand(CommandContext& context, QObject* parent = nullptr);

protected:
    void run() override;

private:
    void onPreview(bool ok);
    void onLoadResult();
    void onBusyChanged();

    QString mFileUrl;
    bool mLoaded = false;
    QTimer mResetLimit;
};

} // namespace cli
