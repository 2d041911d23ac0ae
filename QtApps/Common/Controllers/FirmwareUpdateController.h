#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Model/FirmwareUpdate/FirmwareUpdateView.h"
#include "QtApps/Common/Model/PumpSettings/SettingsBackup.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace common {
class ArchiveReaderInterface;
}
namespace communication {
class ProtocolObjectContainer;
class PumpDetailsController;
class PumpSessionController;
class PumpValues;
} // namespace communication

namespace firmwareUpdate {

class FirmwareUpdateModel;

/// The firmware update for the screens ("cpp.FirmwareUpdateController"). It builds the update
/// model beside the pump values, so that the model runs on the link's thread, and reaches it
/// only by queued calls; the model's reports come back as one view value, which this object
/// splits into its properties. The connection state comes
/// from the session controller, and the new session a rebooted pump needs is asked of it too.
///
/// No update starts before the pump's settings are saved to a backup file, so that a pump whose
/// new firmware comes up with defaults can be given its settings back. The end of an update that
/// brought the pump back is kept (`updateFinished`) until the screens acknowledge it, because
/// the screens are rebuilt while the pump restarts.
///
/// Build it on the thread the values live on before the link moves to its thread, as the
/// controller registry does; the model then moves with the values.
class FirmwareUpdateController final
    : public QObject,
      public communication::QmlSingleton<FirmwareUpdateController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// FirmwareUpdateModelState as a number, 0 to 7.
    Q_PROPERTY(int state READ state NOTIFY statusChanged)
    /// The state's text, or "[percent%] stage" while updating.
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged)
    /// What the loaded bundle holds for the connected pump; empty when nothing matches.
    Q_PROPERTY(QString bundleSummary READ bundleSummary NOTIFY imagesChanged)
    /// The labels "device (bank)" of the images that will be sent.
    Q_PROPERTY(QStringList images READ images NOTIFY imagesChanged)
    Q_PROPERTY(int progressValue READ progressValue NOTIFY progressChanged)
    Q_PROPERTY(bool updateEnabled READ updateEnabled NOTIFY updateEnabledChanged)
    Q_PROPERTY(bool updating READ updating NOTIFY updatingChanged)
    Q_PROPERTY(QString errorDescription READ errorDescription NOTIFY errorDescriptionChanged)
    /// True while the pump's settings are being saved before the transfer.
    Q_PROPERTY(bool backingUp READ backingUp NOTIFY backingUpChanged)
    /// The backup of the pump's settings made before the last update; empty before any.
    Q_PROPERTY(QString settingsBackupPath READ settingsBackupPath NOTIFY settingsBackupChanged)
    /// The same file as a URL, as the settings load takes it.
    Q_PROPERTY(QUrl settingsBackupUrl READ settingsBackupUrl NOTIFY settingsBackupChanged)
    /// True from the moment the pump is back with its new firmware until acknowledgeUpdate().
    Q_PROPERTY(bool updateFinished READ updateFinished NOTIFY updateFinishedChanged)

public:
    FirmwareUpdateController(common::ArchiveReaderInterface& reader,
                             communication::ProtocolObjectContainer& objects,
                             communication::PumpValues& values,
                             communication::PumpSessionController& session,
                             const communication::PumpDetailsController& details,
                             QObject* parent = nullptr);

    int state() const { return static_cast<int>(mView.state); }
    QString statusText() const { return mView.statusText; }
    QString bundleSummary() const { return mView.bundleSummary; }
    QStringList images() const { return mView.images; }
    int progressValue() const { return mView.progressValue; }
    bool updateEnabled() const { return mView.updateEnabled; }
    bool updating() const { return mView.updating; }
    QString errorDescription() const { return mView.errorDescription; }
    bool backingUp() const { return mBackup.running(); }
    QString settingsBackupPath() const { return mBackupPath; }
    QUrl settingsBackupUrl() const;
    bool updateFinished() const { return mUpdateFinished; }

    /// The local path of a file URL as a file dialog gives it: "file:///C:/x.zip" is "C:/x.zip",
    /// "file:///home/x.zip" is "/home/x.zip", back-slashes become "/" and escapes are decoded.
    /// Anything that is not a file URL is taken as a path already.
    static QString bundlePathFromUrl(const QString& fileUrl);

    Q_INVOKABLE void loadBundle(const QString& fileUrl);
    /// Saves the pump's settings to a backup file, then starts the transfer. A backup that
    /// fails starts nothing and says why through errorOccurred.
    Q_INVOKABLE void startUpdate();
    /// The screens have shown the end of the update.
    Q_INVOKABLE void acknowledgeUpdate();

signals:
    void imagesChanged();
    void progressChanged();
    void statusChanged();
    void updateEnabledChanged();
    void updatingChanged();
    void errorDescriptionChanged();
    void errorOccurred(QString description);
    void backingUpChanged();
    void settingsBackupChanged();
    void updateFinishedChanged();

private:
    void onViewChanged(const firmwareUpdate::FirmwareUpdateView& view);
    void onBackupSaved(bool success, const QString& path,
                       pumpSettings::PumpSettingsResultType result);

    FirmwareUpdateModel* mModel; // a child of the values, on the link's thread
    const communication::PumpDetailsController& mDetails;
    pumpSettings::SettingsBackup mBackup;
    FirmwareUpdateView mView;
    QString mBackupPath;
    bool mUpdateFinished = false;
};

} // namespace firmwareUpdate
