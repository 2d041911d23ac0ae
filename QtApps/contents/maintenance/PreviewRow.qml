import QtQuick
import QtQuick.Layouts
import BwConstants

// One setting of a load preview: its name, the pump's value and the file's value; a changed
// setting is marked.
RowLayout {
    id: row

    property string setting: ""
    property string pumpValue: ""
    property string fileValue: ""
    property bool changed: false

    spacing: BwSpacing.small

    Accessible.role: Accessible.Row
    Accessible.name: changed ? qsTr("%1 changes from %2 to %3").arg(setting).arg(pumpValue).arg(fileValue)
                             : qsTr("%1 stays %2").arg(setting).arg(pumpValue)

    Rectangle {
        Layout.preferredWidth: BwSpacing.xs
        Layout.fillHeight: true
        color: row.changed ? BwColours.accent : "transparent"
    }
    Text {
        Layout.preferredWidth: BwSpacing.labelWidth
        text: row.setting
        font.pixelSize: BwFonts.small
        font.weight: row.changed ? BwFonts.bold : BwFonts.normal
        color: BwColours.text
        elide: Text.ElideRight
    }
    Text {
        Layout.fillWidth: true
        text: row.pumpValue
        font.pixelSize: BwFonts.small
        color: BwColours.textMuted
        elide: Text.ElideRight
    }
    Text {
        Layout.fillWidth: true
        text: row.fileValue
        font.pixelSize: BwFonts.small
        font.weight: row.changed ? BwFonts.bold : BwFonts.normal
        color: row.changed ? BwColours.accent : BwColours.textMuted
        elide: Text.ElideRight
    }
}
