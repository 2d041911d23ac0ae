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
    // The display name the start-up gives the application: "Brackwater Link (V1.16.1)".
    title: qsTr("%1 (V%2)").arg(Qt.application.name).arg(Qt.application.version)
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
