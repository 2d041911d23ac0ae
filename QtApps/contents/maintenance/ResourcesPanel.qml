import QtQuick
import BwLib
import contents

// Where this application keeps its own files: the log files, the settings backups made before
// firmware updates, and the documentation, each to open or to copy for a support request.
Box {
    id: panel

    /// Folders and places, as local paths or URLs.
    property string logFolder: ""
    property string backupFolder: ""
    property string documentation: ""

    title: qsTr("Software resources")

    Repeater {
        model: [
            { label: qsTr("Log files"), place: panel.logFolder, name: "logFolder" },
            { label: qsTr("Settings backups"), place: panel.backupFolder, name: "backupFolder" },
            { label: qsTr("Documentation"), place: panel.documentation, name: "documentation" }
        ]
        delegate: ResourceRow {
            required property var modelData
            objectName: modelData.name
            label: modelData.label
            place: modelData.place
        }
    }
}
