import QtQuick
import BwConstants
import BwControls

// A dotted IPv4 address field that shows the pump's address until the user types, and says
// beside itself why a typed text is not an address.
Column {
    id: field

    /// The address the pump reports.
    property string reported: ""
    /// Why the text is not an address; empty when it is.
    property string error: ""
    /// The text in the field.
    property alias text: input.text

    spacing: BwSpacing.xxs

    onReportedChanged: input.text = reported
    Component.onCompleted: input.text = reported

    TextField {
        id: input
        objectName: "addressInput"
        width: BwSpacing.fieldWideWidth
        enabled: field.enabled
        invalid: field.error.length > 0
        inputMethodHints: Qt.ImhFormattedNumbersOnly
        Accessible.name: field.objectName
        Keys.onEscapePressed: text = field.reported
    }
    Text {
        visible: field.error.length > 0 && field.enabled
        text: field.error
        font.pixelSize: BwFonts.small
        color: BwColours.error
    }
}
