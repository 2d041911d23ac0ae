import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents
import cpp.FirmwareUpdateController
import cpp.PumpDetailsController
import cpp.PumpLogModel
import cpp.PumpSettingsController

// The maintenance tab: versions, the pump's firmware, its configuration file, its log, and where
// this application keeps its own files. Only this file binds the controllers and models.
ScrollView {
    id: tab

    /// The application's version and the pump's application version.
    property string appVersion: ""
    property string pumpAppVersion: ""
    readonly property bool versionsDiffer: pumpAppVersion.length > 0 && pumpAppVersion !== appVersion

    contentWidth: availableWidth
    clip: true

    Component.onCompleted: PumpLogModel.getPumpLog()

    /// The panels, for the tests that drive them without file dialogs.
    property alias configuration: configuration
    property alias log: log

    /// Appends the log export to `path` (the export button asks for the path in a dialog).
    function exportLogTo(path) {
        return PumpLogModel.exportToFile(path, PumpDetailsController.pumpSerial, tab.appVersion,
                                         tab.pumpAppVersion)
    }

    Connections {
        target: PumpSettingsController
        function onLoadPreviewReady(ok) { configuration.previewArrived(ok) }
    }
    Connections {
        target: FirmwareUpdateController
        function onErrorOccurred(description) { firmware.failed(description) }
    }

    ColumnLayout {
        x: BwSpacing.large
        width: Math.min(tab.availableWidth - 2 * BwSpacing.large, BwSpacing.contentMaxWidth)
        spacing: BwSpacing.medium

        Item {
            implicitHeight: BwSpacing.small
        }
        Box {
            objectName: "versionsBox"
            Layout.fillWidth: true
            title: qsTr("Versions")
            SettingRow {
                label: qsTr("Application")
                Text {
                    text: qsTr("V%1").arg(tab.appVersion)
                    font.pixelSize: BwFonts.body
                    color: BwColours.text
                }
            }
            SettingRow {
                label: qsTr("Pump application")
                Text {
                    text: tab.pumpAppVersion.length > 0 ? qsTr("V%1").arg(tab.pumpAppVersion) : BwFormat.noFigure
                    font.pixelSize: BwFonts.body
                    color: tab.versionsDiffer ? BwColours.warning : BwColours.text
                }
            }
            SettingRow {
                label: qsTr("Protocol")
                Text {
                    text: PumpDetailsController.protocolVersion
                    font.pixelSize: BwFonts.body
                    color: BwColours.text
                }
            }
            InstructionNote {
                objectName: "versionMismatch"
                Layout.fillWidth: true
                visible: tab.versionsDiffer
                kind: "warning"
                text: qsTr("Version mismatch - functionality may be affected.")
            }
        }
        PumpFirmwareUpgrade {
            id: firmware
            objectName: "firmwarePanel"
            Layout.fillWidth: true
            pumpVersion: tab.pumpAppVersion
            versionsDiffer: tab.versionsDiffer
            state: FirmwareUpdateController.state
            statusText: FirmwareUpdateController.statusText
            bundleSummary: FirmwareUpdateController.bundleSummary
            progress: FirmwareUpdateController.progressValue
            updateEnabled: FirmwareUpdateController.updateEnabled
            updating: FirmwareUpdateController.updating
            errorDescription: FirmwareUpdateController.errorDescription
            backingUp: FirmwareUpdateController.backingUp
            onBundleChosen: file => FirmwareUpdateController.loadBundle(file)
            onUpdateRequested: FirmwareUpdateController.startUpdate()
        }
        ConfigurationPanel {
            id: configuration
            objectName: "configurationPanel"
            Layout.fillWidth: true
            busy: PumpSettingsController.settingsFileBusy
            saveResult: PumpSettingsController.configSaveResult
            saveSucceeded: PumpSettingsController.configSaveSuccess
            loadResult: PumpSettingsController.configLoadResult
            loadSucceeded: PumpSettingsController.configLoadSuccess
            preview: PumpSettingsController.loadPreview
            previewResult: PumpSettingsController.loadPreviewResult
            notApplied: PumpSettingsController.settingsNotApplied
            onSaveRequested: file => PumpSettingsController.save(file)
            onPreviewRequested: file => PumpSettingsController.previewLoad(file)
            onLoadRequested: file => PumpSettingsController.load(file)
            onResetRequested: PumpSettingsController.resetPump()
        }
        LogPanel {
            id: log
            objectName: "logPanel"
            Layout.fillWidth: true
            entries: PumpLogModel
            onRefreshRequested: PumpLogModel.getPumpLog()
            onExportRequested: PumpLogModel.exportCsv(PumpDetailsController.pumpSerial, tab.appVersion,
                                                      tab.pumpAppVersion)
            onClearRequested: PumpLogModel.clearPumpLog()
            Connections {
                target: PumpLogModel
                function onModelReset() { log.entryCount = PumpLogModel.rowCount() }
                function onRowsInserted() { log.entryCount = PumpLogModel.rowCount() }
                function onRowsRemoved() { log.entryCount = PumpLogModel.rowCount() }
            }
        }
        ResourcesPanel {
            objectName: "resourcesPanel"
            Layout.fillWidth: true
            logFolder: ApplicationFolders.logFolder
            backupFolder: ApplicationFolders.backupFolder
            documentation: ApplicationFolders.documentation
        }
        Item {
            implicitHeight: BwSpacing.large
        }
    }
}
