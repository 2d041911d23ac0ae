import QtQuick
import QtQuick.Layouts
import BwConstants

// A titled group of settings or readings: a heading over its content, on the surface colour.
Rectangle {
    id: box

    /// The heading; none when empty.
    property string title: ""
    /// The content, laid out in a column.
    default property alias content: column.data
    /// Space between the content's items.
    property alias spacing: column.spacing

    implicitWidth: column.implicitWidth + 2 * BwSpacing.medium
    implicitHeight: column.implicitHeight + 2 * BwSpacing.medium
    color: BwColours.surface
    radius: BwSpacing.radius
    border.width: BwSpacing.borderWidth
    border.color: BwColours.divider

    Accessible.role: Accessible.Grouping
    Accessible.name: box.title

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: BwSpacing.medium
        spacing: BwSpacing.small

        Text {
            visible: box.title.length > 0
            text: box.title
            font.pixelSize: BwFonts.heading
            font.weight: BwFonts.bold
            color: BwColours.text
        }
    }
}
