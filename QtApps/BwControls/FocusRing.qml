import QtQuick
import BwConstants

// The keyboard focus ring drawn around a control's background; shown only for focus that came
// from the keyboard, so a mouse click does not leave a ring behind.
Rectangle {
    /// Whether the owning control has visual (keyboard) focus.
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -BwSpacing.focusWidth - BwSpacing.xxs
    radius: BwSpacing.radius + BwSpacing.focusWidth
    color: "transparent"
    border.width: BwSpacing.focusWidth
    border.color: BwColours.focusRing
    visible: shown
}
