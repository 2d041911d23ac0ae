#pragma once

#include "Command.h"

#include <QTimer>

namespace cli {

/// `update-firmware BUNDLE [--restore-settings]`: the firmware update of the firmware panel,
/// through the firmware-update controller: the bundle is loaded, the images for this pump are
/// sent with the progress on standard error, and the command ends with the end state's text
/// once the pump runs its new firmware ("Update succeeded!") or the update has failed ("Update
/// failed: ...", "Timed out waiting for response", "Disconnected").
///
/// The controller saves the pump's settings to a backup file before the transfer (where it went
/// is printed); with --restore-settings that file is loaded into the pump once it is back with
/// its new firmware.
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
    void onBackupSaved();
    void onStatusChanged();
    void onError(const QString& description);
    void onUpdated();
    void onRestoreResult();
    void onSettingsBusyChanged();

    bool mStarted = false;
    bool mTransferring = false;
    bool mRebooting = false;
    bool mRestoring = false;
    bool mRestored = false;
    QTimer mResetLimit;
};

} // namespace cli
