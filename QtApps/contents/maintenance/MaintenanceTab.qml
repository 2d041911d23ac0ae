import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import cpp.PumpDetailsController

// The maintenance tab: versions, the pump's firmware, its configuration file, its log, and where
// this application keeps its own files.
ScrollView {
    id: tab

    /// The application's version and the pump's application version.
    property string appVersion: ""
    property string pumpAppVersion: ""
    readonly property bool versionsDiffer: pumpAppVersion.length > 0 && pumpAppVersion !== appVersion

    contentWidth: availableWidth
    clip: true

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
            Text {
                text: qsTr("Application: V%1").arg(tab.appVersion)
                font.pixelSize: BwFonts.body
                color: BwColours.text
            }
            Text {
                text: qsTr("Pump application: V%1").arg(tab.pumpAppVersion)
                font.pixelSize: BwFonts.body
                color: BwColours.text
            }
            Text {
                text: qsTr("Protocol: %1").arg(PumpDetailsController.protocolVersion)
                font.pixelSize: BwFonts.body
                color: BwColours.text
            }
            InstructionNote {
                objectName: "versionMismatch"
                Layout.fillWidth: true
                visible: tab.versionsDiffer
                kind: "warning"
                text: qsTr("Version mismatch - functionality may be affected.")
            }
        }
    }
}
