import QtQuick
import BwLib

// The analog input filter of the current or voltage input: how many samples it averages, and
// how much the input and the filtered output wander, as a speed. A figure that has no speed (a
// speed range whose two inputs are equal) shows a dash and says why.
Box {
    id: panel

    /// The samples averaged now, and the range the pump accepts.
    property int numSamples: 0
    property int numSamplesMin: 0
    property int numSamplesMax: 0
    /// Input and output wander, tenths of rpm; not finite for a degenerate speed range.
    property real inputWanderDrpm: 0
    property real outputWanderDrpm: 0

    signal numSamplesRequested(int numSamples)

    title: qsTr("Input filter")

    SettingRow {
        label: qsTr("Filter samples")
        QuantityInput {
            objectName: "filterSamplesInput"
            label: qsTr("Filter samples")
            decimals: 0
            value: panel.numSamples
            minimum: panel.numSamplesMin
            maximum: panel.numSamplesMax
            onCommitted: count => panel.numSamplesRequested(count)
        }
    }
    WanderRow {
        objectName: "inputWander"
        label: qsTr("Input wander")
        wanderDrpm: panel.inputWanderDrpm
    }
    WanderRow {
        objectName: "outputWander"
        label: qsTr("Output wander")
        wanderDrpm: panel.outputWanderDrpm
    }
}
