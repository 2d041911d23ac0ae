import QtQuick
import BwConstants
import BwLib
import cpp.PumpApplicationSpeedController
import cpp.PumpFaultsSortFilterProxyModel
import cpp.PumpSettingsController
import cpp.PumpSpeedRangeController
import cpp.PumpValuesController

// The pump's live state: speed, direction, what controls it, brake/run, prime, cover,
// temperature, power and supply, one decimal each. Collapsed, only the speed and the direction
// remain. On creation it subscribes the readings and asks for what the pump does not stream.
Column {
    id: status

    /// Whether the side panel is closed: the narrow form.
    property bool collapsed: false
    /// Whether any reading is out of its normal range.
    readonly property bool warning: supplyRow.warning || brakeRunRow.warning || coverRow.warning
                                    || temperatureRow.warning || primeRow.warning || powerRow.warning

    spacing: BwSpacing.xxs

    Component.onCompleted: {
        PumpValuesController.subscribe()
        PumpApplicationSpeedController.subscribe()
        PumpApplicationSpeedController.getApplicationOverrideActive()
        PumpApplicationSpeedController.getMaxApplicationSpeed()
        PumpApplicationSpeedController.getApplicationSpeedEnable()
        PumpSettingsController.getControlInput()
        PumpSpeedRangeController.getEnableLineSpeed()
        filterFaults()
    }
    onCollapsedChanged: filterFaults()
    // The full panel lists the active faults; the narrow one none.
    function filterFaults() {
        PumpFaultsSortFilterProxyModel.setFilterRegularExpression(collapsed ? "None" : "true")
    }
    Component.onDestruction: PumpValuesController.unsubscribe()

    // The narrow form: the speed figure over its unit, and the direction.
    Column {
        visible: status.collapsed
        width: parent.width
        spacing: BwSpacing.xxs
        Text {
            objectName: "collapsedSpeed"
            anchors.horizontalCenter: parent.horizontalCenter
            text: BwFormat.rpm(Math.abs(PumpValuesController.pumpActualSpeedDrpm))
            font.pixelSize: BwFonts.heading
            font.weight: BwFonts.bold
            color: BwColours.text
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("RPM")
            font.pixelSize: BwFonts.small
            color: BwColours.textMuted
        }
        SvgImg {
            anchors.horizontalCenter: parent.horizontalCenter
            width: BwSpacing.icon
            height: BwSpacing.icon
            source: PumpValuesController.directionIsForward ? BwIcons.clockwise : BwIcons.anticlockwise
            color: BwColours.textMuted
            Accessible.name: StatusTexts.direction(PumpValuesController.directionIsForward)
        }
    }

    // The speed, the one reading read from a distance, in large figures.
    Column {
        visible: !status.collapsed
        Text {
            text: qsTr("Speed")
            font.pixelSize: BwFonts.body
            color: BwColours.textMuted
        }
        Text {
            objectName: "speedFigure"
            text: StatusTexts.speed(PumpValuesController.pumpActualSpeedDrpm)
            font.pixelSize: BwFonts.figure
            font.weight: BwFonts.bold
            color: BwColours.text
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("Speed") + ": " + text
        }
    }

    Column {
        visible: !status.collapsed
        width: parent.width
        spacing: BwSpacing.xxs
        StatusRow {
            objectName: "directionRow"
            width: parent.width
            label: qsTr("Direction")
            value: StatusTexts.direction(PumpValuesController.directionIsForward)
        }
        StatusRow {
            objectName: "controlRow"
            width: parent.width
            label: qsTr("Control")
            value: StatusTexts.control(PumpApplicationSpeedController.applicationOverrideActive,
                                       PumpSettingsController.pumpControlInput,
                                       PumpValuesController.pumpInputCurrentUa,
                                       PumpValuesController.pumpInputVoltageMv,
                                       PumpValuesController.pumpInputFrequencyHz,
                                       PumpSpeedRangeController.enableLineTargetSpeedDrpm)
        }
        StatusRow {
            id: brakeRunRow
            objectName: "brakeRunRow"
            width: parent.width
            label: qsTr("Brake/run")
            value: StatusTexts.brakeRun(PumpValuesController.isMotorEnergized,
                                        PumpValuesController.pumpActualSpeedDrpm)
        }
        StatusRow {
            id: primeRow
            objectName: "primeRow"
            width: parent.width
            label: qsTr("Prime")
            value: StatusTexts.prime(PumpValuesController.pumpPrimeInputState)
            warning: PumpValuesController.pumpPrimeInputState
        }
        StatusRow {
            id: coverRow
            objectName: "coverRow"
            width: parent.width
            label: qsTr("Cover")
            value: StatusTexts.cover(PumpValuesController.pumpCoverOpen)
            warning: PumpValuesController.pumpCoverOpen
        }
        StatusRow {
            id: temperatureRow
            objectName: "temperatureRow"
            width: parent.width
            label: qsTr("Temperature")
            value: StatusTexts.temperature(PumpValuesController.pumpTemperature)
            warning: StatusTexts.temperatureWarning(PumpValuesController.pumpTemperature)
        }
        StatusRow {
            id: powerRow
            objectName: "powerRow"
            width: parent.width
            label: qsTr("Power")
            value: StatusTexts.power(PumpValuesController.powerUsageW)
        }
        StatusRow {
            id: supplyRow
            objectName: "supplyRow"
            width: parent.width
            label: qsTr("Supply")
            value: StatusTexts.supply(PumpValuesController.pumpBusVoltage)
            warning: PumpValuesController.pumpBusVoltage > 0
                     && StatusTexts.supplyWarning(PumpValuesController.pumpBusVoltage)
        }
    }
}
