import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents

// The pump's configuration as a file: save it, load one (after a preview of what would change
// and a confirmation), and reset the pump. saveTo(), previewFrom() and loadPreviewed() are what
// the buttons and dialogs call.
Box {
    id: panel

    /// What the settings controller reports.
    property bool busy: false
    property string saveResult: ""
    property bool saveSucceeded: false
    property string loadResult: ""
    property bool loadSucceeded: false
    property var preview: []
    property string previewResult: ""
    property var notApplied: []

    signal saveRequested(url file)
    signal previewRequested(url file)
    signal loadRequested(url file)
    signal resetRequested()

    title: qsTr("Pump configuration")

    property url pendingFile
    property bool showingLoad: false

    function saveTo(file) {
        showingLoad = false
        saveRequested(file)
    }
    function previewFrom(file) {
        pendingFile = file
        previewRequested(file)
    }
    /// Called when the preview has arrived: shows it and asks to confirm, or says why not.
    function previewArrived(ok) {
        if (ok) {
            previewDialog.open()
        } else {
            showingLoad = true
        }
    }
    function loadPreviewed() {
        showingLoad = true
        loadRequested(pendingFile)
    }

    RowLayout {
        spacing: BwSpacing.small
        Button {
            objectName: "saveSettingsButton"
            text: qsTr("Save")
            enabled: !panel.busy
            onClicked: saveDialog.open()
        }
        Button {
            objectName: "loadSettingsButton"
            text: qsTr("Load")
            enabled: !panel.busy
            onClicked: loadDialog.open()
        }
        Item {
            Layout.fillWidth: true
        }
        Button {
            objectName: "resetPumpButton"
            kind: "danger"
            text: qsTr("Reset pump")
            enabled: !panel.busy
            onClicked: resetWarning.open()
        }
    }
    Text {
        objectName: "configurationResult"
        Layout.fillWidth: true
        visible: text.length > 0
        text: panel.showingLoad ? (panel.loadResult.length > 0 ? panel.loadResult : panel.previewResult)
                                : panel.saveResult
        font.pixelSize: BwFonts.body
        color: (panel.showingLoad ? panel.loadSucceeded : panel.saveSucceeded) ? BwColours.text : BwColours.error
        wrapMode: Text.Wrap
    }
    Text {
        objectName: "notAppliedList"
        Layout.fillWidth: true
        visible: panel.showingLoad && panel.notApplied.length > 0
        text: qsTr("Did not take: %1").arg(panel.notApplied.join(", "))
        font.pixelSize: BwFonts.small
        color: BwColours.error
        wrapMode: Text.Wrap
    }

    FileDialog {
        id: saveDialog
        title: qsTr("Save")
        fileMode: FileDialog.SaveFile
        defaultSuffix: "json"
        nameFilters: [qsTr("JSON files (*.json)")]
        onAccepted: panel.saveTo(selectedFile)
    }
    FileDialog {
        id: loadDialog
        title: qsTr("Load")
        fileMode: FileDialog.OpenFile
        nameFilters: [qsTr("JSON files (*.json)")]
        onAccepted: panel.previewFrom(selectedFile)
    }

    ModalOverlay {
        id: previewDialog
        objectName: "loadPreview"
        title: qsTr("Load these settings?")
        text: qsTr("The marked settings change. The pump restarts once they are applied.")
        confirmText: qsTr("Apply")
        onConfirmed: panel.loadPreviewed()
        RowLayout {
            width: parent ? parent.width : implicitWidth
            spacing: BwSpacing.small
            Item { Layout.preferredWidth: BwSpacing.xs }
            Text {
                Layout.preferredWidth: BwSpacing.labelWidth
                text: qsTr("Setting")
                font.pixelSize: BwFonts.small
                font.weight: BwFonts.bold
                color: BwColours.textMuted
            }
            Text {
                Layout.fillWidth: true
                text: qsTr("Pump")
                font.pixelSize: BwFonts.small
                font.weight: BwFonts.bold
                color: BwColours.textMuted
            }
            Text {
                Layout.fillWidth: true
                text: qsTr("File")
                font.pixelSize: BwFonts.small
                font.weight: BwFonts.bold
                color: BwColours.textMuted
            }
        }
        Repeater {
            model: panel.preview
            delegate: PreviewRow {
                required property var modelData
                objectName: "preview_" + modelData.setting
                width: parent ? parent.width : implicitWidth
                setting: modelData.setting
                pumpValue: modelData.pumpValue
                fileValue: modelData.fileValue
                changed: modelData.changed
            }
        }
    }
    ModalOverlay {
        id: resetWarning
        objectName: "resetWarning"
        title: qsTr("Reset pump")
        text: qsTr("The pump restarts: it stops for a few seconds and the connection is made again.")
        confirmText: qsTr("Reset pump")
        destructive: true
        onConfirmed: panel.resetRequested()
    }
}
