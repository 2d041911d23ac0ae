import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import contents
import cpp.PumpApplicationSpeedController
import cpp.PumpDetailsController
import cpp.PumpHeadsSortFilterProxyModel
import cpp.PumpNetworkController
import cpp.PumpSettingsController
import cpp.PumpSpeedRangeController
import cpp.PumpTorqueTargetsModel

// The setup tab: the pump head, acceleration, deceleration and prime speed, the motor torque of a
// stepper pump and the network settings of a network pump. Only this file binds the controllers.
ScrollView {
    id: tab

    contentWidth: availableWidth
    clip: true

    // The highest speed the pump is set to anywhere: a slower head reduces it.
    readonly property int highestSetSpeedDrpm: Math.max(
        PumpApplicationSpeedController.pumpApplicationSpeedDrpm,
        PumpSettingsController.primeSpeedDrpm,
        PumpSpeedRangeController.enableLineTargetSpeedDrpm,
        PumpSpeedRangeController.currentProfileDrpm.MaximumSpeedDrpm,
        PumpSpeedRangeController.voltageProfileDrpm.MaximumSpeedDrpm,
        PumpSpeedRangeController.frequencyProfileDrpm.MaximumSpeedDrpm)

    Component.onCompleted: refresh()
    // The pump may be identified after the tab is built: its kind decides the heads and panels.
    Connections {
        target: PumpDetailsController
        function onPumpDetailsChanged() { tab.refresh() }
    }

    function refresh() {
        PumpHeadsSortFilterProxyModel.setIsStepperPump(PumpDetailsController.isStepperPump)
        PumpHeadsSortFilterProxyModel.setNameFilter("")
        PumpHeadsSortFilterProxyModel.getPumpHeads()
        PumpSettingsController.getPumpHead()
        PumpSettingsController.getAccelerationRpmPerSecond()
        PumpSettingsController.getDecelerationRpmPerSecond()
        PumpSettingsController.getCelerationLimits()
        PumpSettingsController.getPrimeSpeedDrpm()
        PumpApplicationSpeedController.getMaxApplicationSpeed()
        if (PumpDetailsController.isStepperPump)
            PumpTorqueTargetsModel.getTorqueTargets()
        if (PumpDetailsController.isNetworkPump) {
            PumpNetworkController.subscribe()
            PumpNetworkController.getMacAddress()
            PumpNetworkController.getAnybusModule()
            PumpNetworkController.getAnybusVersion()
        }
    }

    ColumnLayout {
        x: BwSpacing.large
        width: Math.min(tab.availableWidth - 2 * BwSpacing.large, BwSpacing.contentMaxWidth)
        spacing: BwSpacing.medium

        Item {
            implicitHeight: BwSpacing.small
        }
        PumpHeadPanel {
            objectName: "pumpHeadPanel"
            Layout.fillWidth: true
            heads: PumpHeadsSortFilterProxyModel
            currentHead: PumpSettingsController.pumpHead
            highestSetSpeedDrpm: tab.highestSetSpeedDrpm
            onHeadRequested: name => PumpSettingsController.setPumpHead(name)
        }
        MotionPanel {
            objectName: "motionPanel"
            Layout.fillWidth: true
            acceleration: PumpSettingsController.accelerationRpmPerSecond
            deceleration: PumpSettingsController.decelerationRpmPerSecond
            celerationMinimum: PumpSettingsController.celerationLimits.minimumRpmPerSec
            celerationMaximum: PumpSettingsController.celerationLimits.maximumRpmPerSec
            primeSpeedDrpm: PumpSettingsController.primeSpeedDrpm
            maxSpeedDrpm: PumpApplicationSpeedController.pumpMaxApplicationSpeedDrpm
            onAccelerationRequested: rpmPerSecond => PumpSettingsController.setAccelerationRpmPerSecond(rpmPerSecond)
            onDecelerationRequested: rpmPerSecond => PumpSettingsController.setDecelerationRpmPerSecond(rpmPerSecond)
            onPrimeSpeedRequested: speed => PumpSettingsController.setPrimeSpeedDrpm(speed)
        }
        TorquePanel {
            objectName: "torquePanel"
            Layout.fillWidth: true
            visible: PumpDetailsController.isStepperPump
            targets: PumpTorqueTargetsModel
            currentIndex: PumpTorqueTargetsModel.currentIndex
            onTorqueRequested: index => PumpTorqueTargetsModel.setTorqueIndex(index)
        }
        NetworkPanel {
            id: network
            objectName: "networkPanel"
            Layout.fillWidth: true
            visible: PumpDetailsController.isNetworkPump
            dhcp: PumpNetworkController.dhcpEnabled
            ipAddress: PumpNetworkController.ipAddress
            subnetMask: PumpNetworkController.subnetMask
            gatewayAddress: PumpNetworkController.gatewayAddress
            macAddress: PumpNetworkController.macAddress
            onApplyRequested: (dhcp, ip, mask, gateway) => {
                if (!PumpNetworkController.setIpConfig(dhcp, ip, mask, gateway))
                    network.refused()
            }
        }
        Item {
            implicitHeight: BwSpacing.large
        }
    }
}
