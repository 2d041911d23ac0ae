#include "FirmwareUpdateController.h"

#include "PumpSessionController.h"

#include "QtApps/Common/Model/FirmwareUpdate/FirmwareUpdateModel.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QRegularExpression>
#include <QUrl>

#include <utility>

namespace firmwareUpdate {

FirmwareUpdateController::FirmwareUpdateController(common::ArchiveReaderInterface& reader,
                                                   communication::ProtocolObjectContainer& objects,
                                                   communication::PumpValues& values,
                                                   communication::PumpSessionController& session,
                                                   QObject* parent)
    : QObject(parent) {
    auto* model = new FirmwareUpdateModel(reader, objects, values, &values);
    // Everything below crosses threads once the link runs on its own: queued both ways.
    connect(this, &FirmwareUpdateController::bundleLoadRequested, model,
            &FirmwareUpdateModel::loadBundle, Qt::QueuedConnection);
    connect(this, &FirmwareUpdateController::updateStartRequested, model,
            &FirmwareUpdateModel::startUpdate, Qt::QueuedConnection);
    connect(this, &FirmwareUpdateController::pumpConnectionChanged, model,
            &FirmwareUpdateModel::setPumpConnected, Qt::QueuedConnection);
    connect(model, &FirmwareUpdateModel::viewChanged, this,
            &FirmwareUpdateController::onViewChanged, Qt::QueuedConnection);
    connect(model, &FirmwareUpdateModel::errorOccurred, this,
            &FirmwareUpdateController::errorOccurred, Qt::QueuedConnection);
    connect(model, &FirmwareUpdateModel::reconnectRequested, &session,
            &communication::PumpSessionController::startScanning, Qt::QueuedConnection);
    connect(&session, &communication::PumpSessionController::connectedStatusChanged, this,
            [this, &session] { emit pumpConnectionChanged(session.pumpConnected()); });
    emit pumpConnectionChanged(session.pumpConnected());
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
    emit bundleLoadRequested(bundlePathFromUrl(fileUrl));
}

void FirmwareUpdateController::startUpdate() {
    emit updateStartRequested();
}

void FirmwareUpdateController::onViewChanged(const FirmwareUpdateView& view) {
    const FirmwareUpdateView old = std::exchange(mView, view);
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
