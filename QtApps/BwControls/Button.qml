import QtQuick
import QtQuick.Templates as T
import BwConstants

// The application's push button.
T.Button {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight, implicitContentHeight + topPadding + bottomPadding)
    padding: BwSpacing.small
    horizontalPadding: BwSpacing.medium

    Accessible.role: Accessible.Button
    Accessible.name: control.text

    contentItem: Text {
        text: control.text
        font.pixelSize: BwFonts.body
        color: control.enabled ? BwColours.background : BwColours.textMuted
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        implicitWidth: 96
        implicitHeight: 36
        radius: BwSpacing.radius
        color: control.down ? BwColours.primaryDark : BwColours.primary
        opacity: control.enabled ? 1 : 0.4
    }
}
