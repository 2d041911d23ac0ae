import QtQuick
import BwConstants
import BwControls

// One fault a technician can raise on purpose: its group heading (if any), its name, and a
// button that asks the pump to raise it. The row turns red once the pump confirms the fault.
Rectangle {
    id: fault

    /// The fault's group heading, empty for most.
    property string title: ""
    /// The fault's name.
    property string name: ""
    /// Whether the pump has confirmed the fault.
    property bool active: false

    /// The technician asked for the fault.
    signal raise()

    implicitWidth: BwSpacing.contentMaxWidth
    implicitHeight: BwSpacing.controlHeight + 2 * BwSpacing.xs
    radius: BwSpacing.radius
    color: active ? BwColours.errorSurface : "transparent"

    Accessible.role: Accessible.ListItem
    Accessible.name: title.length > 0 ? title + ": " + name : name

    Text {
        anchors.left: parent.left
        anchors.leftMargin: BwSpacing.small
        anchors.right: button.left
        anchors.rightMargin: BwSpacing.small
        anchors.verticalCenter: parent.verticalCenter
        text: fault.title.length > 0 ? fault.title + " \u2013 " + fault.name : fault.name
        font.pixelSize: BwFonts.body
        color: fault.active ? BwColours.error : BwColours.text
        elide: Text.ElideRight
    }
    Button {
        id: button
        anchors.right: parent.right
        anchors.rightMargin: BwSpacing.xs
        anchors.verticalCenter: parent.verticalCenter
        text: fault.active ? qsTr("Raised") : qsTr("Raise")
        enabled: !fault.active
        Accessible.name: qsTr("Raise %1").arg(fault.name)
        onClicked: fault.raise()
    }
}
