import QtQuick
import BwConstants

// A one-pixel rule between sections.
Rectangle {
    implicitWidth: BwSpacing.borderWidth
    implicitHeight: BwSpacing.borderWidth
    color: BwColours.divider
}
