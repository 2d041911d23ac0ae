import QtQuick
import BwConstants

// What became of a change sent to the pump, beside the control that sent it: "Applied" once the
// pump reports the new value (or "Applied & restarting" when it restarts to take it), and a
// plain warning when it does not answer. watch() starts it; the note goes after a few seconds.
Text {
    id: note

    /// Whether the change restarts the pump.
    property bool restarts: false

    function watch() {
        state = "waiting"
        timeout.restart()
    }
    /// Call when the pump reports the value asked for.
    function confirm() {
        if (state !== "waiting")
            return
        state = "applied"
        timeout.stop()
        hide.restart()
    }

    state: "idle"
    states: [
        State { name: "idle" },
        State { name: "waiting" },
        State { name: "applied" },
        State { name: "unanswered" }
    ]
    visible: state !== "idle"
    text: state === "waiting" ? qsTr("Sending\u2026")
        : state === "applied" ? (restarts ? qsTr("Applied & restarting") : qsTr("Applied"))
        : state === "unanswered" ? qsTr("The pump did not confirm the change") : ""
    font.pixelSize: BwFonts.small
    color: state === "unanswered" ? BwColours.warning : BwColours.textMuted

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Timer {
        id: timeout
        interval: BwSpacing.snackbarDuration
        onTriggered: {
            note.state = note.restarts ? "applied" : "unanswered"
            hide.restart()
        }
    }
    Timer {
        id: hide
        interval: BwSpacing.snackbarDuration
        onTriggered: note.state = "idle"
    }
}
