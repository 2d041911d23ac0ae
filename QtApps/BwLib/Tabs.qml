import QtQuick
import QtQuick.Layouts
import BwControls

// Titled pages, one shown at a time. The pages are this item's children, in the order of
// `titles`; a tab whose index is in `warnings` carries a warning circle.
Item {
    id: tabs

    /// One title per page (an array of texts).
    property var titles: []
    /// Indexes of the tabs that need attention (an array of numbers).
    property var warnings: []
    /// The page shown.
    property alias currentIndex: bar.currentIndex
    /// The pages.
    default property alias pages: stack.data

    implicitWidth: Math.max(bar.implicitWidth, stack.implicitWidth)
    implicitHeight: bar.implicitHeight + stack.implicitHeight

    Accessible.role: Accessible.PageTabList

    TabBar {
        id: bar
        objectName: "tabBar"
        width: parent.width
        Repeater {
            model: tabs.titles.map((title, index) => ({ title: title,
                                                       warning: tabs.warnings.indexOf(index) >= 0 }))
            TabButton {
                required property int index
                required property var modelData
                objectName: "tab" + index
                text: modelData.title
                width: implicitWidth
                warning: modelData.warning
            }
        }
    }
    StackLayout {
        id: stack
        anchors.top: bar.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        currentIndex: bar.currentIndex
    }
}
