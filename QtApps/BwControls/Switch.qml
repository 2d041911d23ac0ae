import QtQuick
import QtQuick.Templates as T
import BwConstants

// An on/off switch with its label on the right.
T.Switch {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight, implicitContentHeight, implicitIndicatorHeight) + topPadding + bottomPadding
    padding: BwSpacing.xs
    spacing: BwSpacing.small
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.CheckBox
    Accessible.name: control.text
    Accessible.checked: control.checked

    indicator: Rectangle {
        x: control.leftPadding
        y: control.topPadding + (control.availableHeight - height) / 2
        implicitWidth: BwSpacing.switchWidth
        implicitHeight: BwSpacing.switchHeight
        radius: height / 2
        color: !control.enabled ? BwColours.disabled : control.checked ? BwColours.accent : BwColours.border
        Rectangle {
            x: control.checked ? parent.width - width - BwSpacing.xxs : BwSpacing.xxs
            anchors.verticalCenter: parent.verticalCenter
            width: parent.height - 2 * BwSpacing.xxs
            height: width
            radius: width / 2
            color: BwColours.surfaceRaised
        }
        FocusRing {
            shown: control.visualFocus
        }
    }

    contentItem: Text {
        leftPadding: control.indicator.width + control.spacing
        text: control.text
        font.pixelSize: BwFonts.body
        color: control.enabled ? BwColours.text : BwColours.textDisabled
        verticalAlignment: Text.AlignVCenter
    }
}
