import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib

// The link's health at a glance, at the foot of the status panel: the port, the keep-alive's
// round trip and the line's errors of the last minute, with a dot that stays neutral while the
// line is clean and turns amber, then red, as errors and time-outs mount (the side panel's own
// state colours). A click opens the details.
Button {
    id: strip

    /// Whether the side panel is closed: the dot and a word only.
    property bool collapsed: false
    /// "ok", "warning" or "error".
    property string health: "ok"
    /// The serial port of the link.
    property string portName: ""
    /// The last keep-alive round trip, milliseconds; not a number while there is none.
    property real pingMs: NaN
    /// The line's errors and time-outs in the last minute.
    property int problemsPerMinute: 0
    /// Whether the session is being recorded to a file.
    property bool recording: false

    readonly property string panelState: health === "ok" ? "default" : health

    kind: "flat"
    padding: BwSpacing.small
    Accessible.name: qsTr("Link health: %1 errors and time-outs in the last minute. Show details.")
                     .arg(strip.problemsPerMinute)

    contentItem: ColumnLayout {
        spacing: BwSpacing.xxs

        RowLayout {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignHCenter
            spacing: BwSpacing.small
            Rectangle {
                objectName: "linkHealthDot"
                implicitWidth: BwSpacing.badge
                implicitHeight: BwSpacing.badge
                radius: width / 2
                color: BwColours.stateColour(strip.panelState)
            }
            Text {
                text: qsTr("Link")
                font.pixelSize: strip.collapsed ? BwFonts.small : BwFonts.label
                font.weight: BwFonts.bold
                color: BwColours.text
            }
            Text {
                objectName: "linkPort"
                Layout.fillWidth: true
                visible: !strip.collapsed
                text: strip.portName
                horizontalAlignment: Text.AlignRight
                font.pixelSize: BwFonts.small
                color: BwColours.textMuted
                elide: Text.ElideLeft
            }
        }
        RowLayout {
            Layout.fillWidth: true
            visible: !strip.collapsed
            spacing: BwSpacing.small
            Text {
                objectName: "linkPing"
                text: qsTr("Ping %1 ms").arg(BwFormat.number(strip.pingMs, 0))
                font.pixelSize: BwFonts.small
                color: BwColours.textMuted
            }
            Text {
                objectName: "linkErrors"
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignRight
                text: strip.problemsPerMinute === 0 ? qsTr("No errors")
                                                    : qsTr("%1 errors/min").arg(strip.problemsPerMinute)
                font.pixelSize: BwFonts.small
                font.weight: strip.health === "ok" ? BwFonts.normal : BwFonts.bold
                color: strip.health === "ok" ? BwColours.textMuted : BwColours.stateColour(strip.panelState)
            }
        }
        Text {
            objectName: "linkRecording"
            visible: strip.recording && !strip.collapsed
            text: qsTr("Recording the session")
            font.pixelSize: BwFonts.small
            color: BwColours.textMuted
        }
    }
}
