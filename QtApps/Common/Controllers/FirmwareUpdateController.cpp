#include "FirmwareUpdateController.h"

#include "PumpSessionController.h"
#include "QueuedCall.h"

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
    : QObject(parent)
    , mModel(new FirmwareUpdateModel(reader, objects, values, &values)) {
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

void FirmwareUpdateController::startUpdate() {
    communication::callQueued(*mModel, &FirmwareUpdateModel::startUpdate);
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
