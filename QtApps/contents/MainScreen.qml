import QtQuick
import BwConstants
import BwLib
import cpp.PumpSessionController

// The main screen. For now it shows the session state; the status panel and the control,
// setup and maintenance tabs take its place as they arrive.
Rectangle {
    /// The application's version and the pump's application version.
    property string appVersion: ""
    property string pumpAppVersion: ""
    /// True when the pump runs other software than this application expects.
    readonly property bool needNewPumpFirmware: pumpAppVersion.length > 0 && pumpAppVersion !== appVersion

    color: BwColours.background

    Column {
        anchors.centerIn: parent
        spacing: BwSpacing.medium
        Logo {
            anchors.horizontalCenter: parent.horizontalCenter
        }
        Divider {
            width: 320
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PumpSessionController.sessionStatus
            font.pixelSize: BwFonts.heading
            color: BwColours.text
        }
    }
}
