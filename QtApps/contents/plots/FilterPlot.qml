import QtQuick
import QtQuick.Layouts
import BwConstants
import BwLib
import BwPlots

// The analog input filter at work, over the last ten seconds of its 30 ms stream: the input and
// the filtered output (left axis, in the input's unit) and how much each wanders as a speed
// (right axis, RPM), so a technician sees the output settle as they change the sample count.
Box {
    id: box

    /// The analog filter controller (or a stand-in with the same properties).
    property QtObject filterSource: null
    /// "current" or "voltage": which filter's figures to follow.
    property string input: "current"
    /// The input's unit on screen, and the factor from the pump's unit (µA or mV) to it.
    property string inputUnit: qsTr("mA")
    property real inputScale: 0.001

    title: qsTr("Filter signal")

    LivePlot {
        id: plot
        objectName: "filterPlot"
        Layout.fillWidth: true
        leftUnit: box.inputUnit
        rightUnit: qsTr("RPM")
        windowChoices: [2, 5, 10]
        exportStem: box.input + "-filter"
        model: LivePlotModel {
            objectName: "filterHistory"
            // A row per sample of the stream: ten seconds of 30 ms samples, with room for jitter.
            capacity: 400
            sampleIntervalMs: 0
            // Four redraws a second keep a settling signal readable for far less drawing than
            // ten; the samples themselves are all kept.
            refreshIntervalMs: 250
            windowSeconds: 10
            PlotChannel {
                source: box.filterSource
                propertyName: box.input + "FilterData"
                field: "input"
                scale: box.inputScale
                name: qsTr("Input")
                unit: box.inputUnit
                color: BwColours.textMuted
            }
            PlotChannel {
                source: box.filterSource
                propertyName: box.input + "FilterData"
                field: "output"
                scale: box.inputScale
                name: qsTr("Output")
                unit: box.inputUnit
                color: BwColours.accent
            }
            PlotChannel {
                source: box.filterSource
                propertyName: box.input + "InputVarianceDrpm"
                scale: 0.1
                name: qsTr("Input wander")
                unit: qsTr("RPM")
                color: BwColours.textMuted
                dashed: true
                axis: 1
            }
            PlotChannel {
                source: box.filterSource
                propertyName: box.input + "OutputVarianceDrpm"
                scale: 0.1
                name: qsTr("Output wander")
                unit: qsTr("RPM")
                color: BwColours.accent
                dashed: true
                axis: 1
            }
        }
    }
}
