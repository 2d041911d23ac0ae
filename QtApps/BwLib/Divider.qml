import QtQuick
import BwConstants

// A one-pixel rule between sections.
Rectangle {
    implicitWidth: 1
    implicitHeight: 1
    color: BwColours.divider
}
