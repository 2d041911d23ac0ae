import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib

// The pump's event log: one line per entry with its time since power-on, newest at the bottom,
// refreshed, exported to a file, or cleared after a warning.
Box {
    id: panel

    /// The log: an item model with the role "logEntry".
    property var entries
    /// How many entries there are (the model's row count).
    property int entryCount: 0

    signal refreshRequested()
    signal exportRequested()
    signal clearRequested()

    title: qsTr("Pump log")

    // The view moves to the newest entry a moment after rows arrive, once it has laid them out.
    onEntryCountChanged: scrollToEnd.restart()
    Timer {
        id: scrollToEnd
        interval: 50
        onTriggered: list.positionViewAtEnd()
    }

    RowLayout {
        spacing: BwSpacing.small
        Button {
            objectName: "refreshLogButton"
            text: qsTr("Refresh log")
            onClicked: panel.refreshRequested()
        }
        Button {
            objectName: "exportLogButton"
            text: qsTr("Export log")
            enabled: panel.entryCount > 0
            onClicked: panel.exportRequested()
        }
        Item {
            Layout.fillWidth: true
        }
        Button {
            objectName: "clearLogButton"
            kind: "danger"
            text: qsTr("Clear log")
            onClicked: clearWarning.open()
        }
    }
    Rectangle {
        Layout.fillWidth: true
        Layout.preferredHeight: BwSpacing.controlHeight * 6
        color: BwColours.surfaceRaised
        border.width: BwSpacing.borderWidth
        border.color: BwColours.divider
        radius: BwSpacing.radius
        ListView {
            id: list
            objectName: "logList"
            anchors.fill: parent
            anchors.margins: BwSpacing.xs
            clip: true
            model: panel.entries
            boundsBehavior: Flickable.StopAtBounds
            ScrollBar.vertical: ScrollBar {}
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Pump log")
            delegate: Text {
                required property string logEntry
                width: ListView.view ? ListView.view.width : implicitWidth
                text: logEntry
                font.pixelSize: BwFonts.small
                color: BwColours.text
                elide: Text.ElideRight
                Accessible.role: Accessible.ListItem
                Accessible.name: logEntry
            }
        }
        Text {
            anchors.centerIn: parent
            visible: panel.entryCount === 0
            text: qsTr("No entries read yet")
            font.pixelSize: BwFonts.small
            color: BwColours.textMuted
        }
    }

    ModalOverlay {
        id: clearWarning
        objectName: "clearLogWarning"
        title: qsTr("Clear log")
        text: qsTr("The log will be permanently deleted from the pump memory.")
        confirmText: qsTr("Clear log")
        destructive: true
        onConfirmed: panel.clearRequested()
    }
}
