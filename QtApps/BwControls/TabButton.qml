import QtQuick
import QtQuick.Templates as T
import BwConstants

// One tab of a TabBar: its title, a rule under the selected one, and an optional warning circle.
T.TabButton {
    id: control

    /// Shows a warning circle beside the title (for a tab that needs attention).
    property bool warning: false

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, implicitContentHeight + topPadding + bottomPadding)
    padding: BwSpacing.small
    horizontalPadding: BwSpacing.large
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.PageTab
    Accessible.name: control.text
    Accessible.description: control.warning ? qsTr("Needs attention") : ""

    contentItem: Item {
        implicitWidth: children[0].implicitWidth
        implicitHeight: children[0].implicitHeight
        Row {
            anchors.centerIn: parent
            spacing: BwSpacing.small
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                font.pixelSize: BwFonts.body
                font.weight: control.checked ? BwFonts.bold : BwFonts.medium
                color: !control.enabled ? BwColours.textDisabled : control.checked ? BwColours.accent : BwColours.textMuted
            }
            Rectangle {
                objectName: "warningCircle"
                anchors.verticalCenter: parent.verticalCenter
                visible: control.warning
                width: BwSpacing.badge
                height: BwSpacing.badge
                radius: width / 2
                color: BwColours.warning
            }
        }
    }

    background: Rectangle {
        implicitHeight: BwSpacing.tabHeight
        color: control.hovered && !control.checked ? BwColours.surfaceHover : "transparent"
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: BwSpacing.ruleWidth
            color: BwColours.accent
            visible: control.checked
        }
        FocusRing {
            shown: control.visualFocus
        }
    }
}
