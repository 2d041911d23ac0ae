import QtQuick
import QtQuick.Templates as T
import BwConstants

// One entry of a Menu.
T.MenuItem {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, implicitContentHeight + topPadding + bottomPadding)
    padding: BwSpacing.small
    horizontalPadding: BwSpacing.medium

    Accessible.role: Accessible.MenuItem
    Accessible.name: control.text

    contentItem: Text {
        text: control.text
        font.pixelSize: BwFonts.body
        color: control.enabled ? BwColours.text : BwColours.textDisabled
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        implicitWidth: BwSpacing.fieldWideWidth
        implicitHeight: BwSpacing.controlHeight
        color: control.highlighted ? BwColours.accentSurface : "transparent"
    }
}
