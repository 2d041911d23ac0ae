import QtQuick
import QtQuick.Templates as T
import BwConstants

// A thin scroll bar, shown while the content moves or the pointer is over it.
T.ScrollBar {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, implicitContentHeight + topPadding + bottomPadding)
    padding: BwSpacing.xxs
    visible: policy !== T.ScrollBar.AlwaysOff
    minimumSize: orientation === Qt.Horizontal ? height / width : width / height

    Accessible.role: Accessible.ScrollBar

    contentItem: Rectangle {
        implicitWidth: control.interactive ? BwSpacing.scrollBarWidth : BwSpacing.xxs
        implicitHeight: control.interactive ? BwSpacing.scrollBarWidth : BwSpacing.xxs
        radius: width / 2
        color: control.pressed ? BwColours.textMuted : BwColours.border
        opacity: control.policy === T.ScrollBar.AlwaysOn || control.active && control.size < 1.0 ? 1 : 0
    }
}
