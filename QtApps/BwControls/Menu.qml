import QtQuick
import QtQuick.Templates as T
import BwConstants

// A pop-up menu of MenuItems.
T.Menu {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, contentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, contentHeight + topPadding + bottomPadding)
    padding: BwSpacing.xxs

    delegate: MenuItem {}

    contentItem: ListView {
        implicitHeight: contentHeight
        model: control.contentModel
        interactive: Window.window ? contentHeight > Window.window.height : false
        clip: true
        currentIndex: control.currentIndex
    }

    background: Rectangle {
        implicitWidth: BwSpacing.fieldWideWidth
        color: BwColours.surfaceRaised
        border.width: BwSpacing.borderWidth
        border.color: BwColours.border
        radius: BwSpacing.radius
    }
}
