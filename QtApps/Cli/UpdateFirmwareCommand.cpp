#include "UpdateFirmwareCommand.h"

#include "CliInvocation.h"
#include "CliOutput.h"
#include "SaveSettingsCommand.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/FirmwareUpdateController.h"
#include "QtApps/Common/Controllers/PumpDetailsController.h"
#include "QtApps/Common/Controllers/PumpSettingsController.h"
#include "QtApps/Common/Model/FirmwareUpdate/FirmwareUpdateModelState.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettings.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsLoad.h"

#include <QFileInfo>
#include <QJsonArray>

namespace cli {

using communication::PumpSettingsController;
using firmwareUpdate::FirmwareUpdateController;
using firmwareUpdate::FirmwareUpdateModelState;

namespace {

FirmwareUpdateModelState stateOf(const FirmwareUpdateController& update) {
    return static_cast<FirmwareUpdateModelState>(update.state());
}

// The restore's load tells the pump to restart this long after its result.
constexpr int kResetLimitMs = pumpSettings::PumpSettingsLoad::kResetDelayMs + 1000;

} // namespace

UpdateFirmwareCommand::UpdateFirmwareCommand(CommandContext& context, QObject* parent)
    : Command(QStringLiteral("update-firmware"), context, parent) {
    mResetLimit.setSingleShot(true);
    connect(&mResetLimit, &QTimer::timeout, this, [this] { succeed(); });
}

UpdateFirmwareCommand::~UpdateFirmwareCommand() = default;

void UpdateFirmwareCommand::run() {
    FirmwareUpdateController& update = controllers().firmwareUpdateController();
    connect(&update, &FirmwareUpdateController::statusChanged, this,
            &UpdateFirmwareCommand::onStatusChanged);
    connect(&update, &FirmwareUpdateController::progressChanged, this,
            &UpdateFirmwareCommand::onStatusChanged);
    connect(&update, &FirmwareUpdateController::errorOccurred, this,
            &UpdateFirmwareCommand::onError);
    connect(&update, &FirmwareUpdateController::settingsBackupChanged, this,
            &UpdateFirmwareCommand::onBackupSaved);
    update.loadBundle(QFileInfo(invocation().arguments.value(0)).absoluteFilePath());
}

void UpdateFirmwareCommand::onBackupSaved() {
    const QString path = controllers().firmwareUpdateController().settingsBackupPath();
    output().line(tr("Settings saved to %1").arg(path));
    output().field(QStringLiteral("settingsBackup"), path);
}

void UpdateFirmwareCommand::onStatusChanged() {
    if (finishing() || mRestoring) {
        return;
    }
    const FirmwareUpdateController& update = controllers().firmwareUpdateController();
    switch (stateOf(update)) {
    case FirmwareUpdateModelState::Ready:
        if (!mStarted) {
            mStarted = true;
            output().field(QStringLiteral("images"), QJsonArray::fromStringList(update.images()));
            output().notice(update.bundleSummary().trimmed());
            controllers().firmwareUpdateController().startUpdate();
        }
        break;
    case FirmwareUpdateModelState::Updating:
        mTransferring = true;
        output().progress(update.progressValue(), update.statusText());
        break;
    case FirmwareUpdateModelState::Rebooting:
        mRebooting = true;
        output().progress(100, update.statusText());
        break;
    case FirmwareUpdateModelState::Succeeded:
        // Succeeded comes twice: when the last image is verified, and when the pump is back.
        if (mRebooting) {
            onUpdated();
        }
        break;
    case FirmwareUpdateModelState::TimedOut:
    case FirmwareUpdateModelState::Disconnected:
    case FirmwareUpdateModelState::Failed:
        if (mStarted) {
            output().endProgress();
            output().field(QStringLiteral("state"), update.statusText());
            fail(update.errorDescription().isEmpty() ? update.statusText()
                                                     : update.errorDescription());
        }
        break;
    case FirmwareUpdateModelState::NotReady:
        break;
    }
}

// Before the transfer: a bundle that is invalid or has nothing for this pump, or a settings
// backup that failed. During it: a failure, whose state onStatusChanged reports with the same
// text.
void UpdateFirmwareCommand::onError(const QString& description) {
    if (!mTransferring || mRebooting) {
        output().endProgress();
        fail(description);
    }
}

void UpdateFirmwareCommand::onUpdated() {
    const FirmwareUpdateController& update = controllers().firmwareUpdateController();
    output().endProgress();
    output().line(update.statusText());
    output().field(QStringLiteral("state"), update.statusText());
    output().field(QStringLiteral("appVersion"), details().appVersion());
    const QString backup = update.settingsBackupPath();
    if (!invocation().restoreSettings) {
        succeed();
        return;
    }
    mRestoring = true;
    PumpSettingsController& settings = controllers().settingsController();
    connect(&settings, &PumpSettingsController::configLoadResultReceived, this,
            &UpdateFirmwareCommand::onRestoreResult);
    connect(&settings, &PumpSettingsController::settingsFileBusyChanged, this,
            &UpdateFirmwareCommand::onSettingsBusyChanged);
    if (!settings.load(SaveSettingsCommand::fileUrl(backup))) {
        fail(tr("Another settings save or load is running"));
    }
}

void UpdateFirmwareCommand::onRestoreResult() {
    const PumpSettingsController& settings = controllers().settingsController();
    output().field(QStringLiteral("settingsRestore"), settings.configLoadResult());
    if (!settings.configLoadSuccess()) {
        output().notice(tr("The settings were not restored from %1")
                            .arg(controllers().firmwareUpdateController().settingsBackupPath()));
        fail(settings.configLoadResult());
        return;
    }
    output().line(tr("Settings restored: %1").arg(settings.configLoadResult()));
    mRestored = true;
    mResetLimit.start(kResetLimitMs);
    onSettingsBusyChanged();
}

void UpdateFirmwareCommand::onSettingsBusyChanged() {
    if (mRestored && !controllers().settingsController().settingsFileBusy()) {
        succeed();
    }
}

void UpdateFirmwareCommand::onSessionLost() {
    if (!mStarted || mRestoring) {
        Command::onSessionLost();
    }
}

} // namespace cli
