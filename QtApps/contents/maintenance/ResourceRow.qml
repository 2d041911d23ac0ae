import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents

// One place of the software resources: its name, its path, and Open and Copy.
SettingRow {
    id: row

    /// A local path or a URL.
    property string place: ""

    RowLayout {
        spacing: BwSpacing.small
        Text {
            Layout.fillWidth: true
            Layout.maximumWidth: BwSpacing.contentMaxWidth / 2
            text: row.place
            font.pixelSize: BwFonts.small
            color: BwColours.text
            elide: Text.ElideMiddle
        }
        Button {
            kind: "flat"
            text: qsTr("Open")
            Accessible.name: qsTr("Open %1").arg(row.label)
            onClicked: Qt.openUrlExternally(row.place.indexOf(":/") > 0 ? row.place : "file://" + row.place)
        }
        Button {
            kind: "flat"
            text: qsTr("Copy")
            Accessible.name: qsTr("Copy %1").arg(row.label)
            onClicked: Clipboard.setText(row.place)
        }
    }
}
