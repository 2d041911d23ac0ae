import QtQuick
import QtQuick.Controls
import BwConstants
import cpp.PumpSessionController

// The main window. It starts the pump scan once it exists, and on closing ends the pump
// session before it lets the window go.
ApplicationWindow {
    id: window

    /// Set once the session has been asked to stop; the next close is then accepted.
    property bool sessionStopRequested: false

    visible: true
    width: BwSpacing.appMinWidth
    height: BwSpacing.appMinHeight
    minimumWidth: BwSpacing.appMinWidth
    minimumHeight: BwSpacing.appMinHeight
    title: Qt.application.displayName
    color: BwColours.background

    StartUp {
        id: startUp
        objectName: "startUp"
        anchors.fill: parent
    }

    Component.onCompleted: PumpSessionController.startScanning()

    onClosing: function (close) {
        if (sessionStopRequested)
            return
        close.accepted = false
        PumpSessionController.disconnectPump()
        sessionStopRequested = true
        Qt.callLater(window.close)
    }
}
