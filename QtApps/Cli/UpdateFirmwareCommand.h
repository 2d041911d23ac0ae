#pragma once

#include "Command.h"

#include "QtApps/Common/Model/PumpSettings/PumpSettingsResultType.h"

#include <QTimer>

namespace pumpSettings {
class SettingsBackup;
}

namespace cli {

/// `update-firmware BUNDLE [--restore-settings]`: the firmware update of the firmware panel,
/// through the firmware-update controller: the bundle is loaded, the images for this pump are
/// sent with the progress on standard error, and the command ends with the end state's text
/// once the pump runs its new firmware ("Update succeeded!") or the update has failed ("Update
/// failed: ...", "Timed out waiting for response", "Disconnected").
///
/// With --restore-settings the pump's settings are first saved to a backup file (see
/// pumpSettings::SettingsBackup; where it went is printed), and once the pump is back with its
/// new firmware that file is loaded into it with the settings load.
class UpdateFirmwareCommand final : public Command {
    Q_OBJECT

public:
    explicit UpdateFirmwareCommand(CommandContext& context, QObject* parent = nullptr);
    ~UpdateFirmwareCommand() override;

protected:
    void run() override;
    /// The pump leaves during the update (its restart among others): the update's own states
    /// tell what that means.
    void onSessionLost() override;

private:
    void onBackupSaved(bool success, const QString& path,
                       pumpSettings::PumpSettingsResultType result);
    void loadBundle();
    void onStatusChanged();
    void onError(const QString& description);
    void onUpdated();
    void onRestoreResult();
    void onSettingsBusyChanged();

    pumpSettings::SettingsBackup* mBackup = nullptr;
    QString mBackupPath;
    bool mStarted = false;
    bool mRebooting = false;
    bool mRestoring = false;
    bool mRestored = false;
    QTimer mResetLimit;
};

} // namespace cli
