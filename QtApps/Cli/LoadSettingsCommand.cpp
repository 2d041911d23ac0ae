#include "LoadSettingsCommand.h"

#include "CliInvocation.h"
#include "CliOutput.h"
#include "SaveSettingsCommand.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/PumpSettingsController.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsLoad.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QVariantMap>

namespace cli {

using communication::PumpSettingsController;

namespace {
// The load tells the pump to restart this long after its result; a little more is allowed.
constexpr int kResetLimitMs = pumpSettings::PumpSettingsLoad::kResetDelayMs + 1000;
} // namespace

LoadSettingsCommand::LoadSettingsCommand(CommandContext& context, QObject* parent)
    : Command(QStringLiteral("load-settings"), context, parent) {
    mResetLimit.setSingleShot(true);
    connect(&mResetLimit, &QTimer::timeout, this, [this] { succeed(); });
}

void LoadSettingsCommand::run() {
    PumpSettingsController& settings = controllers().settingsController();
    mFileUrl = SaveSettingsCommand::fileUrl(invocation().arguments.value(0));
    connect(&settings, &PumpSettingsController::loadPreviewReady, this,
            &LoadSettingsCommand::onPreview);
    connect(&settings, &PumpSettingsController::configLoadResultReceived, this,
            &LoadSettingsCommand::onLoadResult);
    connect(&settings, &PumpSettingsController::settingsFileBusyChanged, this,
            &LoadSettingsCommand::onBusyChanged);
    output().field(QStringLiteral("dryRun"), invocation().dryRun);
    if (!settings.previewLoad(mFileUrl)) {
        fail(tr("Another settings save or load is running"));
    }
}

void LoadSettingsCommand::onPreview(bool ok) {
    PumpSettingsController& settings = controllers().settingsController();
    if (!ok) {
        fail(settings.loadPreviewResult());
        return;
    }
    QJsonArray preview;
    const QVariantList comparisons = settings.loadPreview();
    for (const QVariant& item : comparisons) {
        const QVariantMap comparison = item.toMap();
        const QString setting = comparison.value(QStringLiteral("setting")).toString();
        const QString pumpValue = comparison.value(QStringLiteral("pumpValue")).toString();
        const QString fileValue = comparison.value(QStringLiteral("fileValue")).toString();
        const bool changed = comparison.value(QStringLiteral("changed")).toBool();
        output().line(changed ? QStringLiteral("%1: %2 -> %3").arg(setting, pumpValue, fileValue)
                              : tr("%1: %2 (unchanged)").arg(setting, pumpValue));
        preview.append(QJsonObject{{QStringLiteral("setting"), setting},
                                   {QStringLiteral("pumpValue"), pumpValue},
                                   {QStringLiteral("fileValue"), fileValue},
                                   {QStringLiteral("changed"), changed}});
    }
    output().field(QStringLiteral("preview"), preview);
    if (invocation().dryRun) {
        succeed();
        return;
    }
    if (!settings.load(mFileUrl)) {
        fail(tr("Another settings save or load is running"));
    }
}

void LoadSettingsCommand::onLoadResult() {
    PumpSettingsController& settings = controllers().settingsController();
    if (!settings.configLoadSuccess()) {
        const QStringList notApplied = settings.settingsNotApplied();
        for (const QString& setting : notApplied) {
            output().notice(tr("Not applied: %1").arg(setting));
        }
        output().field(QStringLiteral("settingsNotApplied"),
                       QJsonArray::fromStringList(notApplied));
        fail(settings.configLoadResult());
        return;
    }
    output().line(settings.configLoadResult());
    output().field(QStringLiteral("result"), settings.configLoadResult());
    mLoaded = true;
    mResetLimit.start(kResetLimitMs);
    onBusyChanged();
}

// A load that succeeded stays busy until it has told the pump to restart: the session is
// stopped only after that.
void LoadSettingsCommand::onBusyChanged() {
    if (mLoaded && !controllers().settingsController().settingsFileBusy()) {
        succeed();
    }
}

} // namespace cli
