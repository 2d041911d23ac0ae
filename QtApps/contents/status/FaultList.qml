import QtQuick
import BwConstants
import BwLib

// The active faults, one line each with the error icon. `faults` is a model with the role
// "name" (the fault proxy model, filtered to the active faults).
Column {
    id: list

    /// The faults to list.
    property alias faults: repeater.model

    spacing: BwSpacing.xs

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Faults")

    Repeater {
        id: repeater
        delegate: Row {
            required property string name
            objectName: "fault_" + name
            spacing: BwSpacing.small
            Accessible.role: Accessible.ListItem
            Accessible.name: name
            SvgImg {
                anchors.verticalCenter: parent.verticalCenter
                width: BwSpacing.iconSmall
                height: BwSpacing.iconSmall
                source: BwIcons.error
                color: BwColours.error
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: parent.name
                font.pixelSize: BwFonts.body
                font.weight: BwFonts.medium
                color: BwColours.error
            }
        }
    }
}
