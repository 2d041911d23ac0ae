import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents

// The pump's firmware: its version, a bundle to browse for, what the bundle holds for this pump,
// and the update with its stage, progress and time left. Failures say what went wrong; the
// bundle stays loaded so the update can be started again.
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

    signal bundleChosen(url file)
    signal updateRequested()

    title: qsTr("Pump firmware")

    /// Shows the end of an update: success, or the error with its description.
    function finished(succeeded) {
        result.succeeded = succeeded
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
            enabled: panel.updateEnabled && !panel.updating
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
        onAccepted: panel.bundleChosen(selectedFile)
    }

    ModalOverlay {
        id: result
        objectName: "firmwareResult"
        property bool succeeded: false
        title: succeeded ? qsTr("Firmware Updated") : qsTr("Firmware update error")
        text: succeeded ? qsTr("The pump runs the new firmware.") : panel.errorDescription
        confirmText: qsTr("Ok")
        cancelText: ""
    }
}
