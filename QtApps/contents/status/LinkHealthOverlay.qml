import QtQuick
import BwConstants
import BwControls
import BwLib
import cpp.LinkStatsController
import contents

// "Link health": every figure of the serial link for a technician chasing a flaky cable, and
// the session recording to send to support. It binds the link statistics itself, so any screen
// can open one (the status panel's link strip does).
ModalOverlay {
    id: overlay

    function rate(bytesPerSecond) {
        return bytesPerSecond < 1000 ? qsTr("%1 B/s").arg(BwFormat.number(bytesPerSecond, 0))
                                     : qsTr("%1 kB/s").arg(BwFormat.number(bytesPerSecond / 1000, 1))
    }
    function perMinute(count) {
        return qsTr("%1 /min").arg(count)
    }
    function milliseconds(value) {
        return qsTr("%1 ms").arg(BwFormat.number(value, 0))
    }

    objectName: "linkHealthOverlay"
    title: qsTr("Link health")
    text: LinkStatsController.minuteSeconds < 60
          ? qsTr("Figures per minute cover the %1 s since the link started.").arg(LinkStatsController.minuteSeconds)
          : ""
    confirmText: ""
    cancelText: qsTr("Close")

    component Heading: Text {
        width: parent.width
        topPadding: BwSpacing.small
        font.pixelSize: BwFonts.label
        font.weight: BwFonts.bold
        color: BwColours.text
    }

    Column {
        width: parent.width
        spacing: BwSpacing.xxs

        StatusRow {
            objectName: "linkPortRow"
            width: parent.width
            label: qsTr("Port")
            value: LinkStatsController.portOpen ? LinkStatsController.portName
                                                : qsTr("%1 (closed)").arg(LinkStatsController.portName)
        }
        StatusRow {
            objectName: "linkReceivedRow"
            width: parent.width
            label: qsTr("Received")
            value: qsTr("%1, %2 frames/s").arg(overlay.rate(LinkStatsController.bytesInPerSecond))
                                          .arg(BwFormat.number(LinkStatsController.framesInPerSecond, 0))
        }
        StatusRow {
            objectName: "linkSentRow"
            width: parent.width
            label: qsTr("Sent")
            value: qsTr("%1, %2 frames/s").arg(overlay.rate(LinkStatsController.bytesOutPerSecond))
                                          .arg(BwFormat.number(LinkStatsController.framesOutPerSecond, 0))
        }
        StatusRow {
            objectName: "linkPingRow"
            width: parent.width
            label: qsTr("Ping, last")
            value: overlay.milliseconds(LinkStatsController.pingLastMs)
        }
        StatusRow {
            width: parent.width
            label: qsTr("Ping, mean / worst")
            value: qsTr("%1 / %2").arg(overlay.milliseconds(LinkStatsController.pingMeanMs))
                                  .arg(overlay.milliseconds(LinkStatsController.pingWorstMs))
        }

        Heading {
            text: qsTr("Last minute")
        }
        StatusRow {
            objectName: "linkErrorsRow"
            width: parent.width
            label: qsTr("Line errors and time-outs")
            value: overlay.perMinute(LinkStatsController.lineProblemsPerMinute)
            warning: LinkStatsController.lineProblemsPerMinute > 0
        }
        StatusRow {
            objectName: "linkTimeoutsRow"
            width: parent.width
            visible: LinkStatsController.timeoutsPerMinute > 0
            label: qsTr("Time-outs")
            value: overlay.perMinute(LinkStatsController.timeoutsPerMinute)
            warning: true
        }
        Repeater {
            model: LinkStatsController.errorKinds
            delegate: StatusRow {
                required property var modelData
                width: parent ? parent.width : 0
                label: modelData.kind
                value: qsTr("%1 /min").arg(modelData.perMinute)
                warning: modelData.line
            }
        }
        StatusRow {
            objectName: "linkRetriesRow"
            width: parent.width
            label: qsTr("Retries")
            value: overlay.perMinute(LinkStatsController.retriesPerMinute)
            warning: LinkStatsController.retriesPerMinute > 0
        }

        Heading {
            text: qsTr("Session recording")
        }
        Switch {
            objectName: "recordSessionsSwitch"
            text: qsTr("Record every session")
            checked: LinkStatsController.recordSessions
            onToggled: LinkStatsController.setRecordSessions(checked)
        }
        Text {
            width: parent.width
            text: qsTr("Every frame sent and received is written, with its time, to a file you can send to support.")
            font.pixelSize: BwFonts.small
            color: BwColours.textMuted
            wrapMode: Text.Wrap
        }
        TextEdit {
            objectName: "recordingPath"
            width: parent.width
            visible: LinkStatsController.recordingPath.length > 0
            readOnly: true
            selectByMouse: true
            text: LinkStatsController.recording
                  ? qsTr("Recording to %1 (%2 events)").arg(LinkStatsController.recordingPath)
                                                        .arg(LinkStatsController.recordedEvents)
                  : qsTr("Last recording: %1").arg(LinkStatsController.recordingPath)
            font.pixelSize: BwFonts.small
            color: BwColours.text
            wrapMode: TextEdit.WrapAnywhere
        }
        Text {
            objectName: "recordingError"
            width: parent.width
            visible: text.length > 0
            text: LinkStatsController.recordingError
            font.pixelSize: BwFonts.small
            color: BwColours.warning
            wrapMode: Text.Wrap
        }
        Button {
            objectName: "openRecordingsButton"
            kind: "flat"
            text: qsTr("Show recordings folder")
            onClicked: LinkStatsController.openRecordingsFolder()
        }
    }
}
