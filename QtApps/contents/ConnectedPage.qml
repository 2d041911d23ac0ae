import QtQuick
import BwConstants

// Shown for a moment once the session is open.
Rectangle {
    id: page

    /// The pump's application version.
    property string pumpAppVersion: ""

    color: BwColours.background

    Column {
        anchors.centerIn: parent
        spacing: BwSpacing.medium
        Logo {
            anchors.horizontalCenter: parent.horizontalCenter
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("CONNECTED")
            font.pixelSize: BwFonts.banner
            font.letterSpacing: 4
            color: BwColours.accent
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: page.pumpAppVersion.length > 0
            text: qsTr("Pump software version %1").arg(page.pumpAppVersion)
            font.pixelSize: BwFonts.body
            color: BwColours.textMuted
        }
    }
}
