import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents
import cpp.PumpNetworkController

// The network module of a network pump: DHCP or a static address. Every address is checked
// (by the network controller's own rule) before anything is sent; the module restarts its
// network interface to take a change.
Box {
    id: panel

    /// What the pump reports.
    property bool dhcp: false
    property string ipAddress: ""
    property string subnetMask: ""
    property string gatewayAddress: ""
    property string macAddress: ""

    /// The user applies the settings shown; the screen answers with refused() when nothing
    /// could be sent.
    signal applyRequested(bool dhcp, string ip, string subnetMask, string gateway)

    function refused() {
        applied.state = "idle"
        refusal.visible = true
    }

    title: qsTr("Network")

    property bool editedDhcp: dhcp
    onDhcpChanged: editedDhcp = dhcp

    function addressError(text) {
        return panel.editedDhcp || PumpNetworkController.isValidAddress(text) ? "" : qsTr("Not an IPv4 address such as 192.168.0.10")
    }
    readonly property bool valid: editedDhcp || (addressError(ipField.text) === ""
        && addressError(maskField.text) === "" && addressError(gatewayField.text) === "")

    SettingRow {
        label: qsTr("DHCP")
        Switch {
            objectName: "dhcpSwitch"
            text: checked ? qsTr("The network gives the address") : qsTr("Static address")
            checked: panel.editedDhcp
            onToggled: panel.editedDhcp = checked
        }
    }
    SettingRow {
        label: qsTr("IP address")
        AddressField {
            id: ipField
            objectName: "ipAddressField"
            reported: panel.ipAddress
            enabled: !panel.editedDhcp
            error: panel.addressError(text)
        }
    }
    SettingRow {
        label: qsTr("Subnet mask")
        AddressField {
            id: maskField
            objectName: "subnetMaskField"
            reported: panel.subnetMask
            enabled: !panel.editedDhcp
            error: panel.addressError(text)
        }
    }
    SettingRow {
        label: qsTr("Gateway address")
        AddressField {
            id: gatewayField
            objectName: "gatewayField"
            reported: panel.gatewayAddress
            enabled: !panel.editedDhcp
            error: panel.addressError(text)
        }
    }
    SettingRow {
        label: qsTr("MAC address")
        Text {
            objectName: "macAddress"
            text: panel.macAddress.length > 0 ? panel.macAddress : BwFormat.noFigure
            font.pixelSize: BwFonts.body
            color: BwColours.text
        }
    }
    RowLayout {
        spacing: BwSpacing.small
        Button {
            objectName: "applyNetworkButton"
            kind: "primary"
            text: qsTr("Apply")
            enabled: panel.valid
            onClicked: {
                refusal.visible = false
                applied.watch()
                panel.applyRequested(panel.editedDhcp, ipField.text, maskField.text, gatewayField.text)
            }
        }
        AppliedNote {
            id: applied
            restarts: true
        }
        Text {
            visible: !panel.valid
            text: qsTr("Correct the addresses marked red; nothing is sent until they are valid.")
            font.pixelSize: BwFonts.small
            color: BwColours.error
        }
        Text {
            id: refusal
            objectName: "networkRefusal"
            visible: false
            text: qsTr("Nothing was sent: the pump cannot take these addresses.")
            font.pixelSize: BwFonts.small
            color: BwColours.error
        }
    }
}
