import QtQuick
import QtQuick.Templates as T
import BwConstants

// A progress bar from `from` to `to`.
T.ProgressBar {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, implicitContentHeight + topPadding + bottomPadding)

    Accessible.role: Accessible.ProgressBar

    contentItem: Item {
        implicitWidth: BwSpacing.fieldWideWidth
        implicitHeight: BwSpacing.progressHeight
        Rectangle {
            width: control.visualPosition * parent.width
            height: parent.height
            radius: height / 2
            color: control.enabled ? BwColours.accent : BwColours.disabled
        }
    }
    background: Rectangle {
        implicitWidth: BwSpacing.fieldWideWidth
        implicitHeight: BwSpacing.progressHeight
        radius: height / 2
        color: BwColours.divider
    }
}
