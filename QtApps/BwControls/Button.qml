import QtQuick
import QtQuick.Templates as T
import BwConstants

// The push button. `kind` picks its weight: "primary" (filled accent: the one action of a
// section), "secondary" (outlined, the default), "danger" (filled red: deletes or reboots) or
// "flat" (text only, for light actions in a row).
T.Button {
    id: control

    /// "primary", "secondary", "danger" or "flat".
    property string kind: "secondary"

    readonly property bool filled: kind === "primary" || kind === "danger"
    readonly property color fillColour: kind === "danger" ? BwColours.error : BwColours.accent

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight, implicitContentHeight + topPadding + bottomPadding)
    padding: BwSpacing.small
    horizontalPadding: BwSpacing.medium
    spacing: BwSpacing.small
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: control.text

    contentItem: Text {
        text: control.text
        font.pixelSize: BwFonts.body
        font.weight: BwFonts.medium
        color: !control.enabled ? BwColours.textDisabled
             : control.filled ? BwColours.textOnFill
             : BwColours.accent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    background: Rectangle {
        implicitWidth: BwSpacing.buttonMinWidth
        implicitHeight: BwSpacing.controlHeight
        radius: BwSpacing.radius
        color: !control.enabled ? (control.filled ? BwColours.disabled : "transparent")
             : control.filled ? (control.down ? Qt.darker(control.fillColour, 1.25) : control.fillColour)
             : control.down || control.hovered ? BwColours.surfaceHover : "transparent"
        border.width: control.kind === "secondary" ? BwSpacing.borderWidth : 0
        border.color: control.enabled ? BwColours.accent : BwColours.disabled

        FocusRing {
            shown: control.visualFocus
        }
    }
}
