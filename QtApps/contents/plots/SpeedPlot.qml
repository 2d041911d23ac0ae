import QtQuick
import QtQuick.Layouts
import BwConstants
import BwLib
import BwPlots

// The actual speed against the speed the pump is told to run at, over the last minute: the
// application speed in the fixed-speed and network modes, the published target speed in the
// analog and enable-line modes, none without a control input. Both as magnitudes, in RPM.
Box {
    id: box

    /// The pump's control input, as the settings controller reports it ("Application", ...).
    property string controlInput: ""
    /// Has `pumpActualSpeedDrpm` (tenths of rpm, signed by direction).
    property QtObject valuesSource: null
    /// Has `pumpApplicationSpeedDrpm` (tenths of rpm).
    property QtObject applicationSpeedSource: null
    /// Has the target speeds of the speed ranges (`currentTargetSpeedDrpm`, ...; tenths of rpm).
    property QtObject speedRangeSource: null

    readonly property var commanded: {
        switch (controlInput) {
        case "Application":
        case "Network":
            return {source: applicationSpeedSource, property: "pumpApplicationSpeedDrpm"}
        case "Current":
            return {source: speedRangeSource, property: "currentTargetSpeedDrpm"}
        case "Voltage":
            return {source: speedRangeSource, property: "voltageTargetSpeedDrpm"}
        case "Frequency":
            return {source: speedRangeSource, property: "frequencyTargetSpeedDrpm"}
        case "Enable line":
            return {source: speedRangeSource, property: "enableLineTargetSpeedDrpm"}
        default:
            return {source: null, property: ""}
        }
    }

    title: qsTr("Speed")

    LivePlot {
        id: plot
        objectName: "speedPlot"
        Layout.fillWidth: true
        leftUnit: qsTr("RPM")
        windowChoices: [10, 30, 60]
        exportStem: "speed"
        model: LivePlotModel {
            objectName: "speedHistory"
            capacity: 600
            sampleIntervalMs: 100
            // A minute's window moves by under half a percent in a quarter second: four redraws
            // a second look as smooth as ten, for less than half the drawing.
            refreshIntervalMs: 250
            windowSeconds: 60
            includeZero: true
            PlotChannel {
                name: qsTr("Actual speed")
                unit: qsTr("RPM")
                color: BwColours.accent
                source: box.valuesSource
                propertyName: "pumpActualSpeedDrpm"
                scale: 0.1
                absolute: true
            }
            PlotChannel {
                name: qsTr("Commanded speed")
                unit: qsTr("RPM")
                color: BwColours.textMuted
                dashed: true
                source: box.commanded.source
                propertyName: box.commanded.property
                scale: 0.1
                absolute: true
            }
        }
    }
}
