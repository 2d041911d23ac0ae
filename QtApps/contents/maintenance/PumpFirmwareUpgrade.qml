import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents

// The pump's firmware: its version, a bundle to browse for, what the bundle holds for this pump,
// and the update with its stage, progress and time left. The pump's settings are saved to a
// backup file before the transfer starts. Failures say what went wrong; the bundle stays loaded
// so the update can be started again.
Box {
    id: panel

    /// The pump's application version.
    property string pumpVersion: ""
    /// Whether the pump's version differs from the application's.
    property bool versionsDiffer: false
    /// What the firmware-update controller reports.
    property int state: 0
    property string statusText: ""
    property string bundleSummary: ""
    property int progress: 0
    property bool updateEnabled: false
    property bool updating: false
    property string errorDescription: ""
    /// True while the pump's settings are being saved before the transfer.
    property bool backingUp: false

    signal bundleChosen(url file)
    signal updateRequested()

    title: qsTr("Pump firmware")

    /// Loads the bundle `file` (a file URL), as the file dialog does.
    function choose(file) {
        bundleChosen(file)
    }

    /// Shows why an update failed or did not start.
    function failed(description) {
        result.text = description
        result.open()
    }

    // Progress over time, for the estimate of the time left: the first sample of this update
    // and the latest.
    property real startedAt: 0
    property int startProgress: 0
    property real secondsLeft: -1
    onUpdatingChanged: {
        startedAt = Date.now()
        startProgress = progress
        secondsLeft = -1
    }
    onProgressChanged: {
        const elapsed = (Date.now() - startedAt) / 1000
        const done = progress - startProgress
        secondsLeft = updating && done > 0 && elapsed > 2 ? elapsed * (100 - progress) / done : -1
    }
    function timeLeftText() {
        if (secondsLeft < 0)
            return qsTr("Estimating the time left\u2026")
        if (secondsLeft < 60)
            return qsTr("About %1 s left").arg(Math.ceil(secondsLeft))
        return qsTr("About %1 min left").arg(Math.ceil(secondsLeft / 60))
    }

    SettingRow {
        label: qsTr("Pump firmware")
        Text {
            objectName: "pumpFirmwareVersion"
            text: panel.pumpVersion.length > 0 ? qsTr("V%1").arg(panel.pumpVersion) : BwFormat.noFigure
            font.pixelSize: BwFonts.body
            font.weight: BwFonts.medium
            color: panel.versionsDiffer ? BwColours.warning : BwColours.text
        }
    }
    InstructionNote {
        Layout.fillWidth: true
        visible: panel.versionsDiffer
        kind: "warning"
        text: qsTr("Version mismatch - functionality may be affected.")
    }
    RowLayout {
        spacing: BwSpacing.small
        Button {
            objectName: "browseFirmwareButton"
            text: qsTr("Browse")
            enabled: !panel.updating
            Accessible.description: qsTr("Browse and upload firmware file")
            onClicked: bundleDialog.open()
        }
        Button {
            objectName: "applyFirmwareButton"
            kind: "primary"
            text: qsTr("Apply firmware")
            enabled: panel.updateEnabled && !panel.updating && !panel.backingUp
            onClicked: panel.updateRequested()
        }
    }
    Text {
        objectName: "bundleSummary"
        Layout.fillWidth: true
        visible: text.length > 0
        text: panel.bundleSummary.length > 0 ? panel.bundleSummary : panel.errorDescription
        font.pixelSize: BwFonts.small
        color: panel.bundleSummary.length > 0 ? BwColours.text : BwColours.error
        wrapMode: Text.Wrap
    }
    Text {
        objectName: "firmwareBackingUp"
        visible: panel.backingUp
        text: qsTr("Saving the pump's settings before the update\u2026")
        font.pixelSize: BwFonts.body
        color: BwColours.text
    }
    ColumnLayout {
        visible: panel.updating || panel.state === 7
        Layout.fillWidth: true
        spacing: BwSpacing.xs
        ProgressBar {
            objectName: "firmwareProgress"
            Layout.fillWidth: true
            from: 0
            to: 100
            value: panel.progress
        }
        Text {
            objectName: "firmwareStatus"
            text: panel.statusText
            font.pixelSize: BwFonts.body
            color: BwColours.text
        }
        Text {
            visible: panel.updating
            text: panel.timeLeftText()
            font.pixelSize: BwFonts.small
            color: BwColours.textMuted
        }
    }

    FileDialog {
        id: bundleDialog
        title: qsTr("Browse and upload firmware file")
        nameFilters: [qsTr("Firmware bundles (*.zip)")]
        onAccepted: panel.choose(selectedFile)
    }

    ModalOverlay {
        id: result
        objectName: "firmwareResult"
        title: qsTr("Firmware update error")
        confirmText: qsTr("Ok")
        cancelText: ""
    }
}
