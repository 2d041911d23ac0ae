#pragma once

#include "FirmwareUpdateModelState.h"

#include <QMetaType>
#include <QString>
#include <QStringList>

namespace firmwareUpdate {

/// Everything the screen shows of a firmware update, as one value: the model sends a fresh copy
/// across threads whenever any of it changes.
struct FirmwareUpdateView {
    FirmwareUpdateModelState state = FirmwareUpdateModelState::NotReady;
    QString statusText = StateText(FirmwareUpdateModelState::NotReady);
    int progressValue = 0; ///< percent of the selected images' bytes programmed
    QString bundleSummary;
    QStringList images; ///< labels of the images selected for the pump
    QString errorDescription;
    bool updateEnabled = false;
    bool updating = false;

    bool operator==(const FirmwareUpdateView& other) const {
        return state == other.state && statusText == other.statusText &&
               progressValue == other.progressValue && bundleSummary == other.bundleSummary &&
               images == other.images && errorDescription == other.errorDescription &&
               updateEnabled == other.updateEnabled && updating == other.updating;
    }
    bool operator!=(const FirmwareUpdateView& other) const { return !(*this == other); }
};

} // namespace firmwareUpdate

Q_DECLARE_METATYPE(firmwareUpdate::FirmwareUpdateView)
