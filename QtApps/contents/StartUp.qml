import QtQuick
import QtQuick.Controls
import BwConstants
import cpp.PumpDetailsController
import cpp.PumpSessionController

// The start-up sequence: a blank page, the connecting page while no pump is connected, the
// connected page for a moment, then the main screen. A lost connection starts over.
Item {
    id: startUp

    /// The application's own version.
    readonly property string appVersion: Qt.application.version
    /// The pump's application version, shown on the connected page.
    readonly property string pumpAppVersion: PumpDetailsController.appVersion
    /// objectName of the page on top, for tests and diagnostics.
    readonly property string currentPage: stack.currentItem ? stack.currentItem.objectName : ""

    state: PumpSessionController.pumpConnected ? "connected" : "connecting"
    states: [
        State { name: "connecting" },
        State { name: "connected" }
    ]
    onStateChanged: enterState()
    Component.onCompleted: enterState()

    function enterState() {
        pageDelay.stop()
        if (state === "connected") {
            stack.push(connectedPage, { pumpAppVersion: Qt.binding(() => startUp.pumpAppVersion) })
            pageDelay.next = mainPage
        } else {
            stack.clear(StackView.Immediate)
            stack.push(blankPage, {}, StackView.Immediate)
            pageDelay.next = connectingPage
        }
        pageDelay.start()
    }

    Timer {
        id: pageDelay
        property Component next
        interval: BwSpacing.connectingAnimationDuration
        onTriggered: stack.push(next, next === mainPage
                                ? { appVersion: Qt.binding(() => startUp.appVersion),
                                    pumpAppVersion: Qt.binding(() => startUp.pumpAppVersion) }
                                : {})
    }

    StackView {
        id: stack
        anchors.fill: parent

        pushEnter: Transition {
            NumberAnimation { property: "opacity"; from: 0; to: 1; duration: BwSpacing.pageFadeDuration }
        }
        pushExit: Transition {
            NumberAnimation { property: "opacity"; from: 1; to: 0; duration: BwSpacing.pageFadeDuration }
        }
        popEnter: pushEnter
        popExit: pushExit
        replaceEnter: pushEnter
        replaceExit: pushExit
    }

    Component {
        id: blankPage
        Rectangle {
            objectName: "blankPage"
            color: BwColours.background
        }
    }
    Component {
        id: connectingPage
        ConnectingPage {
            objectName: "connectingPage"
        }
    }
    Component {
        id: connectedPage
        ConnectedPage {
            objectName: "connectedPage"
        }
    }
    Component {
        id: mainPage
        MainScreen {
            objectName: "mainScreen"
        }
    }
}
