import QtQuick
import QtQuick.Layouts
import BwConstants
import BwLib
import cpp.LinkStatsController
import cpp.PumpDetailsController
import cpp.PumpNetworkController

// Everything the pump says about itself, for a support request: the device and pump details,
// the versions, for a network pump its network module, and the serial link's figures of the last
// minute (the link-health overlay has them all). "Copy" puts it all on the clipboard as text.
ModalOverlay {
    id: overlay

    /// The application's version.
    property string appVersion: ""

    readonly property var fields: {
        const rows = [
            [qsTr("Product"), PumpDetailsController.productDescription],
            [qsTr("Part number"), PumpDetailsController.partNumber],
            [qsTr("Serial number"), PumpDetailsController.pumpSerial],
            [qsTr("Device type"), PumpDetailsController.deviceType],
            [qsTr("Pump type"), PumpDetailsController.pumpType],
            [qsTr("Motor"), PumpDetailsController.motorType],
            [qsTr("Pump head"), PumpDetailsController.headType],
            [qsTr("Stepper pump"), PumpDetailsController.isStepperPump ? qsTr("Yes") : qsTr("No")],
            [qsTr("Network pump"), PumpDetailsController.isNetworkPump ? qsTr("Yes") : qsTr("No")],
            [qsTr("Pump application"), PumpDetailsController.appVersion],
            [qsTr("Protocol"), PumpDetailsController.protocolVersion],
            [qsTr("Application"), overlay.appVersion]
        ]
        if (PumpDetailsController.isNetworkPump) {
            rows.push([qsTr("Network module"), PumpNetworkController.anybusModuleType])
            rows.push([qsTr("Network module version"), PumpNetworkController.anybusVersion])
            rows.push([qsTr("MAC address"), PumpNetworkController.macAddress])
            rows.push([qsTr("IP address"), PumpNetworkController.ipAddress])
            rows.push([qsTr("Link"), PumpNetworkController.linkConnected ? qsTr("Connected") : qsTr("Not connected")])
            rows.push([qsTr("IP established"), PumpNetworkController.ipEstablished ? qsTr("Yes") : qsTr("No")])
        }
        rows.push([qsTr("Serial port"), LinkStatsController.portName])
        rows.push([qsTr("Traffic in / out"),
                   qsTr("%1 / %2 B/s").arg(BwFormat.number(LinkStatsController.bytesInPerSecond, 0))
                                      .arg(BwFormat.number(LinkStatsController.bytesOutPerSecond, 0))])
        rows.push([qsTr("Ping, last / mean / worst"),
                   qsTr("%1 / %2 / %3 ms").arg(BwFormat.number(LinkStatsController.pingLastMs, 0))
                                          .arg(BwFormat.number(LinkStatsController.pingMeanMs, 0))
                                          .arg(BwFormat.number(LinkStatsController.pingWorstMs, 0))])
        rows.push([qsTr("Line errors and time-outs"), qsTr("%1 /min").arg(LinkStatsController.lineProblemsPerMinute)])
        rows.push([qsTr("Retries"), qsTr("%1 /min").arg(LinkStatsController.retriesPerMinute)])
        return rows
    }
    /// The whole information as text, one "name: value" line each.
    function asText() {
        return fields.map(row => row[0] + ": " + (row[1].length > 0 ? row[1] : BwFormat.noFigure)).join("\n")
    }

    title: qsTr("Pump information")
    confirmText: qsTr("Copy")
    cancelText: qsTr("Close")
    onConfirmed: Clipboard.setText(asText())
    onOpened: if (PumpDetailsController.isNetworkPump) {
        PumpNetworkController.getAnybusModule()
        PumpNetworkController.getAnybusVersion()
        PumpNetworkController.getMacAddress()
    }

    Repeater {
        model: overlay.fields
        delegate: RowLayout {
            required property var modelData
            width: parent ? parent.width : implicitWidth
            spacing: BwSpacing.small
            Text {
                Layout.preferredWidth: BwSpacing.labelWidth
                text: parent.modelData[0]
                font.pixelSize: BwFonts.small
                color: BwColours.textMuted
            }
            Text {
                Layout.fillWidth: true
                text: parent.modelData[1].length > 0 ? parent.modelData[1] : BwFormat.noFigure
                font.pixelSize: BwFonts.small
                color: BwColours.text
                elide: Text.ElideRight
            }
        }
    }
}
