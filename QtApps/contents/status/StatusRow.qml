import QtQuick
import BwConstants

// One reading of the pump-status panel: its name on the left, its value on the right, amber
// while it is a warning.
Item {
    id: row

    /// The reading's name, for example "Speed".
    property string label: ""
    /// The reading, with its unit.
    property string value: ""
    /// Whether the reading is out of its normal range.
    property bool warning: false

    implicitWidth: name.implicitWidth + reading.implicitWidth + BwSpacing.medium
    implicitHeight: Math.max(name.implicitHeight, reading.implicitHeight) + BwSpacing.xs

    Accessible.role: Accessible.StaticText
    Accessible.name: row.label + ": " + row.value

    Text {
        id: name
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        text: row.label
        font.pixelSize: BwFonts.body
        color: BwColours.textMuted
    }
    Text {
        id: reading
        objectName: "value"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: row.value
        font.pixelSize: BwFonts.body
        font.weight: BwFonts.medium
        color: row.warning ? BwColours.warning : BwColours.text
    }
}
