import QtQuick
import QtTest
import contents

// The side panel's state and what the pump-status panel says of each reading.
Item {
    width: 400
    height: 600

    SidePanel {
        id: panel
        height: parent.height
    }

    TestCase {
        name: "SidePanel"
        when: windowShown

        function test_stateColoursTheFaultsAboveTheWarnings_data() {
            return [
                { tag: "calm", fault: false, warning: false, state: "default" },
                { tag: "warning", fault: false, warning: true, state: "warning" },
                { tag: "fault", fault: true, warning: false, state: "error" },
                { tag: "both", fault: true, warning: true, state: "error" },
            ]
        }
        function test_stateColoursTheFaultsAboveTheWarnings(data) {
            panel.faultActive = data.fault
            panel.warning = data.warning
            compare(panel.state, data.state)
            compare(findChild(panel, "clearFaultsButton").visible, data.fault)
        }

        function test_collapsingKeepsSpeedAndDirectionOnly() {
            panel.open = false
            verify(!findChild(panel, "speedFigure").visible)
            verify(findChild(panel, "collapsedSpeed").visible)
            panel.open = true
            verify(findChild(panel, "speedFigure").visible)
        }

        function test_statusTexts() {
            compare(StatusTexts.speed(-1205), "120.5 RPM")
            compare(StatusTexts.direction(false), "Counter-clockwise")
            compare(StatusTexts.control(true, "Current", 0, 0, 0, 0), "App override")
            compare(StatusTexts.control(false, "Current", 12345, 0, 0, 0), "12.3 mA")
            compare(StatusTexts.control(false, "Voltage", 0, 6500, 0, 0), "6.5 V")
            compare(StatusTexts.control(false, "Frequency", 0, 0, 250, 0), "250.0 Hz")
            compare(StatusTexts.control(false, "Enable line", 0, 0, 0, 1000), "100.0 RPM")
            compare(StatusTexts.control(false, "Network", 0, 0, 0, 0), "Network")
            compare(StatusTexts.control(false, "None", 0, 0, 0, 0), "None")
            compare(StatusTexts.brakeRun(false, 100), "Inactive")
            compare(StatusTexts.brakeRun(true, 0), "Brake")
            compare(StatusTexts.brakeRun(true, -5), "Run")
            compare(StatusTexts.temperature(25.34), "25.3°C")
            compare(StatusTexts.power(1.25), "1.3W")
            compare(StatusTexts.supply(24000), "24.0V")
            verify(StatusTexts.supplyWarning(18000))
            verify(!StatusTexts.supplyWarning(24000))
            verify(StatusTexts.temperatureWarning(70))
        }
    }
}
