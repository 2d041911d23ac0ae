import QtQuick
import QtQuick.Controls
import BwConstants
import BwLib
import cpp.PumpSessionController

// Shown while no pump answers: the logo, a plug and a socket moving towards each other, and
// "CONNECTING" blinking. The animations run only while the page is on top, so a covered page
// costs no frames. Below, when a port cannot be opened, why and what fixes it: a technician on a
// fresh Linux laptop usually may not use serial ports yet, and would otherwise wait forever.
Rectangle {
    id: page

    readonly property int duration: BwSpacing.connectingAnimationDuration
    readonly property bool animating: StackView.status === StackView.Active

    color: BwColours.background

    Logo {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: connector.top
        anchors.bottomMargin: BwSpacing.large
    }

    Item {
        id: connector
        width: 240
        height: 40
        anchors.centerIn: parent

        // The plug: a body and two pins, coming from the left.
        Item {
            id: plug
            width: 70
            height: parent.height
            Rectangle { width: 50; height: parent.height; radius: BwSpacing.radius; color: BwColours.accent }
            Rectangle { x: 50; y: 10; width: 20; height: 6; color: BwColours.accentPressed }
            Rectangle { x: 50; y: 24; width: 20; height: 6; color: BwColours.accentPressed }
        }
        // The socket, coming from the right.
        Rectangle {
            id: socket
            width: 50
            height: parent.height
            radius: BwSpacing.radius
            color: BwColours.accentPressed
        }

        SequentialAnimation {
            running: page.animating
            loops: Animation.Infinite
            ParallelAnimation {
                NumberAnimation { target: plug; property: "x"; from: 0; to: 50; duration: page.duration; easing.type: Easing.InOutQuad }
                NumberAnimation { target: socket; property: "x"; from: 190; to: 120; duration: page.duration; easing.type: Easing.InOutQuad }
            }
            PauseAnimation { duration: page.duration }
        }
    }

    Text {
        id: connectingText
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: connector.bottom
        anchors.topMargin: BwSpacing.large
        text: qsTr("CONNECTING")
        font.pixelSize: BwFonts.heading
        font.letterSpacing: 4
        color: BwColours.text
        opacity: 0

        SequentialAnimation {
            running: page.animating
            loops: Animation.Infinite
            NumberAnimation { target: connectingText; property: "opacity"; from: 0; to: 1; duration: page.duration / 2 }
            NumberAnimation { target: connectingText; property: "opacity"; from: 1; to: 0; duration: page.duration / 2 }
            PauseAnimation { duration: page.duration * 2 }
        }
    }

    InstructionNote {
        objectName: "portProblemNote"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: connectingText.bottom
        anchors.topMargin: BwSpacing.xl
        width: Math.min(parent.width - 2 * BwSpacing.large, BwSpacing.dialogWidth)
        kind: "warning"
        text: PumpSessionController.portProblem
        visible: text !== ""
    }
}
