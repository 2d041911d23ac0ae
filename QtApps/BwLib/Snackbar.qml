import QtQuick
import BwConstants

// A short message at the bottom of its parent that goes by itself after a few seconds:
// confirmation of something done ("Faults Cleared"). show() replaces a message still shown.
Rectangle {
    id: snackbar

    /// The message shown now.
    property string text: ""

    function show(message) {
        text = message
        visible = true
        hideTimer.restart()
    }

    anchors.horizontalCenter: parent ? parent.horizontalCenter : undefined
    anchors.bottom: parent ? parent.bottom : undefined
    anchors.bottomMargin: BwSpacing.large
    width: Math.min(BwSpacing.snackbarWidth, label.implicitWidth + 2 * BwSpacing.medium)
    height: label.implicitHeight + 2 * BwSpacing.small
    radius: BwSpacing.radius
    color: BwColours.text
    visible: false
    z: 10

    Accessible.role: Accessible.AlertMessage
    Accessible.name: snackbar.text

    Text {
        id: label
        anchors.centerIn: parent
        width: parent.width - 2 * BwSpacing.medium
        text: snackbar.text
        font.pixelSize: BwFonts.body
        color: BwColours.textOnFill
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    Timer {
        id: hideTimer
        interval: BwSpacing.snackbarDuration
        onTriggered: snackbar.visible = false
    }
}
