import QtQuick
import QtQuick.Templates as T
import BwConstants

// A row of TabButtons over a rule.
T.TabBar {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, contentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, contentHeight + topPadding + bottomPadding)
    spacing: 0

    Accessible.role: Accessible.PageTabList

    contentItem: ListView {
        model: control.contentModel
        currentIndex: control.currentIndex
        spacing: control.spacing
        orientation: ListView.Horizontal
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.AutoFlickIfNeeded
        snapMode: ListView.SnapToItem
    }

    background: Rectangle {
        color: BwColours.surface
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: BwSpacing.borderWidth
            color: BwColours.divider
        }
    }
}
