pragma Singleton
import QtQuick
import BwLib

// What the pump-status panel says of each reading, and which readings count as a warning. Kept
// apart from the panel so that the rules are tested on their own.
QtObject {
    /// Drive temperature from which the panel warns, °C (the drive raises its own warning there).
    readonly property real hotTemperatureC: 70
    /// The supply range of a 24 V drive; outside it the panel warns, V.
    readonly property real lowSupplyV: 20
    readonly property real highSupplyV: 28

    function speed(actualSpeedDrpm) {
        return qsTr("%1 RPM").arg(BwFormat.rpm(Math.abs(actualSpeedDrpm)))
    }
    function direction(forward) {
        return forward ? qsTr("Clockwise") : qsTr("Counter-clockwise")
    }
    /// `input` is the control input's text; the readings are those of the values controller.
    function control(overrideActive, input, currentUa, voltageMv, frequencyHz, enableLineDrpm) {
        if (overrideActive)
            return qsTr("App override")
        switch (input) {
        case "Current":
            return qsTr("%1 mA").arg(BwFormat.number(currentUa / 1000, 1))
        case "Voltage":
            return qsTr("%1 V").arg(BwFormat.number(voltageMv / 1000, 1))
        case "Frequency":
            return qsTr("%1 Hz").arg(BwFormat.number(frequencyHz, 1))
        case "Enable line":
            return qsTr("%1 RPM").arg(BwFormat.rpm(enableLineDrpm))
        case "Network":
            return qsTr("Network")
        default:
            return input
        }
    }
    function brakeRun(energized, actualSpeedDrpm) {
        if (!energized)
            return qsTr("Inactive")
        return actualSpeedDrpm === 0 ? qsTr("Brake") : qsTr("Run")
    }
    function prime(active) {
        return active ? qsTr("Active") : qsTr("Inactive")
    }
    function cover(open) {
        return open ? qsTr("Open") : qsTr("Closed")
    }
    function temperature(degreesC) {
        return qsTr("%1°C").arg(BwFormat.number(degreesC, 1))
    }
    function power(watts) {
        return qsTr("%1W").arg(BwFormat.number(watts, 1))
    }
    function supply(busVoltageMv) {
        return qsTr("%1V").arg(BwFormat.number(busVoltageMv / 1000, 1))
    }

    function supplyWarning(busVoltageMv) {
        const volts = busVoltageMv / 1000
        return volts < lowSupplyV || volts > highSupplyV
    }
    function temperatureWarning(degreesC) {
        return degreesC >= hotTemperatureC
    }
}
