import QtQuick
import BwConstants

// The maker's word mark.
Column {
    spacing: 2
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: "BRACKWATER"
        font.pixelSize: BwFonts.title
        font.bold: true
        font.letterSpacing: 4
        color: BwColours.accent
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: "LINK"
        font.pixelSize: BwFonts.body
        font.letterSpacing: 8
        color: BwColours.textMuted
    }
}
