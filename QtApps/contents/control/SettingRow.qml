import QtQuick
import QtQuick.Layouts
import BwConstants

// A labelled line of a settings box: the label in a column of its own, then the control.
RowLayout {
    id: row

    /// The setting's name.
    property string label: ""
    /// The control (a QuantityInput, a switch, a combo box).
    default property alias control: holder.data

    spacing: BwSpacing.medium

    Text {
        Layout.preferredWidth: BwSpacing.labelWidth
        Layout.alignment: Qt.AlignTop
        // Level with the first line of the control: centred on a field, on top of a text.
        Layout.topMargin: holder.implicitHeight >= BwSpacing.controlHeight
                          ? (BwSpacing.controlHeight - implicitHeight) / 2 : 0
        text: row.label
        font.pixelSize: BwFonts.body
        color: BwColours.textMuted
        wrapMode: Text.Wrap
    }
    Item {
        id: holder
        Layout.fillWidth: true
        implicitWidth: children.length > 0 ? children[0].implicitWidth : 0
        implicitHeight: children.length > 0 ? children[0].implicitHeight : 0
    }
}
