import QtQuick
import BwConstants
import BwControls
import BwLib

// One wander figure of the filter panel: "±x.x RPM", or a dash with its reason on hover.
SettingRow {
    id: row

    /// The wander, tenths of rpm.
    property real wanderDrpm: 0
    readonly property bool finite: isFinite(wanderDrpm)

    Text {
        objectName: "figure"
        text: row.finite ? qsTr("\u00B1%1 RPM").arg(BwFormat.rpm(row.wanderDrpm)) : BwFormat.noFigure
        font.pixelSize: BwFonts.body
        color: row.finite ? BwColours.text : BwColours.warning
        Accessible.role: Accessible.StaticText
        Accessible.name: row.label + ": " + (row.finite ? text : hint.text)

        HoverHandler {
            id: hover
        }
        ToolTip {
            id: hint
            visible: !row.finite && hover.hovered
            text: qsTr("The speed range is degenerate: its two inputs are equal, so the wander has no speed.")
        }
    }
}
