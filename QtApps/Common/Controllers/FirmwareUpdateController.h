#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Model/FirmwareUpdate/FirmwareUpdateView.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace common {
class ArchiveReaderInterface;
}
namespace communication {
class ProtocolObjectContainer;
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

public:
    FirmwareUpdateController(common::ArchiveReaderInterface& reader,
                             communication::ProtocolObjectContainer& objects,
                             communication::PumpValues& values,
                             communication::PumpSessionController& session,
                             QObject* parent = nullptr);

    int state() const { return static_cast<int>(mView.state); }
    QString statusText() const { return mView.statusText; }
    QString bundleSummary() const { return mView.bundleSummary; }
    QStringList images() const { return mView.images; }
    int progressValue() const { return mView.progressValue; }
    bool updateEnabled() const { return mView.updateEnabled; }
    bool updating() const { return mView.updating; }
    QString errorDescription() const { return mView.errorDescription; }

    /// The local path of a file URL as a file dialog gives it: "file:///C:/x.zip" is "C:/x.zip",
    /// "file:///home/x.zip" is "/home/x.zip", back-slashes become "/" and escapes are decoded.
    /// Anything that is not a file URL is taken as a path already.
    static QString bundlePathFromUrl(const QString& fileUrl);

    Q_INVOKABLE void loadBundle(const QString& fileUrl);
    Q_INVOKABLE void startUpdate();

signals:
    void imagesChanged();
    void progressChanged();
    void statusChanged();
    void updateEnabledChanged();
    void updatingChanged();
    void errorDescriptionChanged();
    void errorOccurred(QString description);

private:
    void onViewChanged(const firmwareUpdate::FirmwareUpdateView& view);

    FirmwareUpdateModel* mModel; // a child of the values, on the link's thread
    FirmwareUpdateView mView;
};

} // namespace firmwareUpdate
