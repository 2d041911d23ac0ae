#include "FirmwareUpdateController.h"

#include "PumpDetailsController.h"
#include "PumpSessionController.h"
#include "QueuedCall.h"

#include "QtApps/Common/Logger/Log.h"

#include "QtApps/Common/Model/FirmwareUpdate/FirmwareUpdateModel.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettings.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

#include <utility>

namespace firmwareUpdate {

FirmwareUpdateController::FirmwareUpdateController(
    common::ArchiveReaderInterface& reader, communication::ProtocolObjectContainer& objects,
    communication::PumpValues& values, communication::PumpSessionController& session,
    const communication::PumpDetailsController& details, QObject* parent)
    : QObject(parent)
    , mModel(new FirmwareUpdateModel(reader, objects, values, &values))
    , mDetails(details)
    , mBackup(values) {
    connect(&mBackup, &pumpSettings::SettingsBackup::saved, this,
            &FirmwareUpdateController::onBackupSaved);
    FirmwareUpdateModel* model = mModel;
    // Everything below crosses threads once the link runs on its own: queued both ways.
    connect(model, &FirmwareUpdateModel::viewChanged, this,
            &FirmwareUpdateController::onViewChanged, Qt::QueuedConnection);
    connect(model, &FirmwareUpdateModel::errorOccurred, this,
            &FirmwareUpdateController::errorOccurred, Qt::QueuedConnection);
    connect(model, &FirmwareUpdateModel::reconnectRequested, &session,
            &communication::PumpSessionController::startScanning, Qt::QueuedConnection);
    const auto followSession = [model, &session] {
        communication::callQueued(*model, &FirmwareUpdateModel::setPumpConnected,
                                  session.pumpConnected());
    };
    connect(&session, &communication::PumpSessionController::connectedStatusChanged, this,
            followSession);
    followSession();
}

QString FirmwareUpdateController::bundlePathFromUrl(const QString& fileUrl) {
    QString text = fileUrl;
    text.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (!text.startsWith(QLatin1String("file:"), Qt::CaseInsensitive)) {
        return text;
    }
    const QUrl url(text);
    if (!url.isLocalFile()) {
        return text;
    }
    QString path = url.toLocalFile();
    // "file:///C:/x" reads as "/C:/x" where the platform has no drives.
    static const QRegularExpression driveAfterSlash(QStringLiteral("^/[A-Za-z]:/"));
    if (driveAfterSlash.match(path).hasMatch()) {
        path.remove(0, 1);
    }
    return path;
}

void FirmwareUpdateController::loadBundle(const QString& fileUrl) {
    communication::callQueued(*mModel, &FirmwareUpdateModel::loadBundle,
                              bundlePathFromUrl(fileUrl));
}

QUrl FirmwareUpdateController::settingsBackupUrl() const {
    return mBackupPath.isEmpty() ? QUrl() : QUrl::fromLocalFile(mBackupPath);
}

void FirmwareUpdateController::startUpdate() {
    // The model refuses, with its reason in the log, an update it cannot start.
    if (!mView.updateEnabled) {
        communication::callQueued(*mModel, &FirmwareUpdateModel::startUpdate);
        return;
    }
    if (mBackup.save(mDetails.pumpSerial())) {
        emit backingUpChanged();
    }
}

void FirmwareUpdateController::onBackupSaved(bool success, const QString& path,
                                             pumpSettings::PumpSettingsResultType result) {
    emit backingUpChanged();
    if (!success) {
        const QString reason = pumpSettings::PumpSettings::resultText(result);
        BWL_LOG_WARN(
            "onBackupSaved",
            QStringLiteral("Firmware update not started: no settings backup (%1)").arg(reason));
        emit errorOccurred(tr("The pump's settings could not be saved to %1 (%2). The firmware "
                              "was not updated.")
                               .arg(QDir::toNativeSeparators(path), reason));
        return;
    }
    mBackupPath = path;
    emit settingsBackupChanged();
    communication::callQueued(*mModel, &FirmwareUpdateModel::startUpdate);
}

void FirmwareUpdateController::acknowledgeUpdate() {
    if (std::exchange(mUpdateFinished, false)) {
        emit updateFinishedChanged();
    }
}

void FirmwareUpdateController::onViewChanged(const FirmwareUpdateView& view) {
    const FirmwareUpdateView old = std::exchange(mView, view);
    if (old.state == FirmwareUpdateModelState::Rebooting &&
        view.state == FirmwareUpdateModelState::Succeeded && !mUpdateFinished) {
        mUpdateFinished = true;
        emit updateFinishedChanged();
    }
    if (old.state != view.state || old.statusText != view.statusText) {
        emit statusChanged();
    }
    if (old.images != view.images || old.bundleSummary != view.bundleSummary) {
        emit imagesChanged();
    }
    if (old.progressValue != view.progressValue) {
        emit progressChanged();
    }
    if (old.updateEnabled != view.updateEnabled) {
        emit updateEnabledChanged();
    }
    if (old.updating != view.updating) {
        emit updatingChanged();
    }
    if (old.errorDescription != view.errorDescription) {
        emit errorDescriptionChanged();
    }
}

} // namespace firmwareUpdate
