import QtQuick
import BwLib
import cpp.FirmwareUpdateController
import cpp.PumpDetailsController
import cpp.PumpSettingsController

// The end of a firmware update, shown once the pump is back with its new firmware, whichever
// screen is up by then. It offers to load the settings saved before the update back into the
// pump, for firmware that came up with its defaults; the load restarts the pump.
ModalOverlay {
    id: overlay

    readonly property bool hasBackup: FirmwareUpdateController.settingsBackupPath.length > 0

    title: qsTr("Firmware Updated")
    text: {
        const runs = qsTr("The pump runs firmware V%1.").arg(PumpDetailsController.appVersion)
        if (!hasBackup)
            return runs
        return runs + "\n\n" + qsTr("Its settings were saved before the update to %1. Load them back into the pump? The pump restarts after the load.")
            .arg(FirmwareUpdateController.settingsBackupPath)
    }
    confirmText: hasBackup ? qsTr("Load settings") : qsTr("Ok")
    cancelText: hasBackup ? qsTr("Not now") : ""

    function showIfFinished() {
        if (FirmwareUpdateController.updateFinished && !opened)
            open()
    }
    Component.onCompleted: showIfFinished()
    Connections {
        target: FirmwareUpdateController
        function onUpdateFinishedChanged() { overlay.showIfFinished() }
    }

    onConfirmed: {
        if (hasBackup)
            PumpSettingsController.load(FirmwareUpdateController.settingsBackupUrl)
        FirmwareUpdateController.acknowledgeUpdate()
    }
    onCancelled: FirmwareUpdateController.acknowledgeUpdate()
}
