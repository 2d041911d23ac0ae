import QtQuick
import QtQuick.Templates as T
import BwConstants

// A tool tip: dark text box, shown after a short delay.
T.ToolTip {
    id: control

    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: -implicitHeight - BwSpacing.xs
    implicitWidth: Math.min(BwSpacing.toolTipWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: BwSpacing.small
    delay: BwSpacing.toolTipDelay
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: Text {
        text: control.text
        font.pixelSize: BwFonts.small
        wrapMode: Text.Wrap
        color: BwColours.textOnFill
    }
    background: Rectangle {
        color: BwColours.text
        radius: BwSpacing.radius
    }
}
