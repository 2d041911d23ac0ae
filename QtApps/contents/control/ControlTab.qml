import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import cpp.PumpAnalogFilterController
import cpp.PumpApplicationSpeedController
import cpp.PumpDetailsController
import cpp.PumpSettingsController
import cpp.PumpSpeedRangeController
import cpp.PumpValuesController
import contents

// The control tab: how the pump's speed is commanded, and the settings of that way. Only this
// file binds the controllers; the panels take what they show as properties. A mode's panel
// exists only while the mode is chosen, so its streams (the filter data) run only then.
ScrollView {
    id: tab

    /// The control inputs the user can choose; "Network" only for a network pump.
    readonly property var inputs: PumpDetailsController.isNetworkPump
                                  ? ["None", "Enable line", "Application", "Network"]
                                  : ["None", "Enable line", "Voltage", "Current", "Frequency", "Application"]

    contentWidth: availableWidth
    clip: true

    Component.onCompleted: {
        PumpSettingsController.getControlInput()
        PumpSpeedRangeController.subscribe()
        PumpSpeedRangeController.getAllSpeedRanges()
        PumpSpeedRangeController.getAllSpeedRangeLimits()
    }
    Component.onDestruction: PumpSpeedRangeController.unsubscribe()

    ColumnLayout {
        width: Math.min(tab.availableWidth - 2 * BwSpacing.large, BwSpacing.contentMaxWidth)
        x: BwSpacing.large
        spacing: BwSpacing.medium

        Item {
            implicitHeight: BwSpacing.small
        }

        Box {
            Layout.fillWidth: true
            title: qsTr("Control input")
            SettingRow {
                label: qsTr("Speed set by")
                ComboBox {
                    id: inputChooser
                    objectName: "controlInputChooser"
                    model: tab.inputs
                    // Shows what the pump reports; a choice shows only once the pump has taken it.
                    currentIndex: tab.inputs.indexOf(PumpSettingsController.pumpControlInput)
                    displayText: currentIndex >= 0 ? currentText : PumpSettingsController.pumpControlInput
                    Accessible.name: qsTr("Control input")
                    onActivated: index => {
                        PumpSettingsController.setControlInput(tab.inputs[index])
                        currentIndex = Qt.binding(() => tab.inputs.indexOf(PumpSettingsController.pumpControlInput))
                    }
                }
            }
        }

        Loader {
            id: modePanel
            objectName: "modePanel"
            Layout.fillWidth: true
            sourceComponent: {
                switch (PumpSettingsController.pumpControlInput) {
                case "Application": return fixedSpeed
                case "Current": return currentMode
                case "Voltage": return voltageMode
                case "Frequency": return frequencyMode
                case "Enable line": return enableLineMode
                case "Network": return networkMode
                default: return noInput
                }
            }
        }

        SpeedPlot {
            objectName: "speedPlotBox"
            Layout.fillWidth: true
            controlInput: PumpSettingsController.pumpControlInput
            valuesSource: PumpValuesController
            applicationSpeedSource: PumpApplicationSpeedController
            speedRangeSource: PumpSpeedRangeController
        }

        Box {
            Layout.fillWidth: true
            title: qsTr("Test faults")
            InstructionNote {
                Layout.fillWidth: true
                kind: "warning"
                text: qsTr("Make the pump raise a fault on purpose, to check how a plant reacts to it. The pump may stop.")
            }
            Button {
                objectName: "testFaultsButton"
                text: qsTr("Test faults\u2026")
                onClicked: testFaultsWarning.open()
            }
        }

        Item {
            implicitHeight: BwSpacing.large
        }
    }

    ModalOverlay {
        id: testFaultsWarning
        objectName: "testFaultsWarning"
        title: qsTr("Test faults")
        text: qsTr("The pump will raise each fault you choose as if it had happened, and may stop. Use this only on a pump that is not in service.")
        confirmText: qsTr("Continue")
        onConfirmed: testFaults.open()
    }
    TestFaultsOverlay {
        id: testFaults
        objectName: "testFaults"
    }

    Component {
        id: fixedSpeed
        FixedSpeedPanel {
            objectName: "fixedSpeedPanel"
            speedDrpm: PumpApplicationSpeedController.pumpApplicationSpeedDrpm
            maxSpeedDrpm: PumpApplicationSpeedController.pumpMaxApplicationSpeedDrpm
            actualSpeedDrpm: PumpValuesController.pumpActualSpeedDrpm
            clockwise: PumpApplicationSpeedController.motorDirection === PumpApplicationSpeedController.Clockwise
            speedEnabled: PumpApplicationSpeedController.pumpApplicationSpeedEnable
            overrideActive: PumpApplicationSpeedController.applicationOverrideActive
            Component.onCompleted: PumpApplicationSpeedController.getApplicationSpeed()
            onSpeedRequested: speed => PumpApplicationSpeedController.setApplicationSpeedDrpm(speed)
            onDirectionRequested: clockwise => PumpApplicationSpeedController.setMotorDirection(
                                      clockwise ? PumpApplicationSpeedController.Clockwise
                                                : PumpApplicationSpeedController.Anticlockwise)
            onEnableRequested: enable => PumpApplicationSpeedController.setApplicationSpeedEnable(enable)
            onOverrideRequested: active => PumpApplicationSpeedController.setApplicationOverrideActive(active)
        }
    }
    Component {
        id: currentMode
        ColumnLayout {
            spacing: BwSpacing.medium
            Component.onCompleted: {
                PumpAnalogFilterController.getCurrentNumSamples()
                PumpAnalogFilterController.getCurrentNumSamplesMax()
                PumpAnalogFilterController.subscribeCurrentFilterData()
            }
            Component.onDestruction: PumpAnalogFilterController.unsubscribeCurrentFilterData()
            SpeedRangePanel {
                objectName: "currentRangePanel"
                Layout.fillWidth: true
                title: qsTr("Current input (mA)")
                profile: PumpSpeedRangeController.currentProfileDrpm
                limits: PumpSpeedRangeController.currentLimitsDrpm
                resolutionDrpm: PumpSpeedRangeController.currentSpeedResolutionDrpm
                targetSpeedDrpm: PumpSpeedRangeController.currentTargetSpeedDrpm
                inputValue: PumpValuesController.pumpInputCurrentUa / 1000
                inputUnit: qsTr("mA")
                inputScale: 1000
                inputDecimals: 2
                onProfileRequested: (minSpeed, maxSpeed, minInput, maxInput, hysteresis) =>
                    PumpSpeedRangeController.setCurrentSpeedRangeDrpm(minSpeed, maxSpeed, minInput, maxInput, hysteresis)
            }
            FilterPanel {
                objectName: "currentFilterPanel"
                Layout.fillWidth: true
                numSamples: PumpAnalogFilterController.currentNumSamples
                numSamplesMin: PumpAnalogFilterController.currentNumSamplesMin
                numSamplesMax: PumpAnalogFilterController.currentNumSamplesMax
                inputWanderDrpm: PumpAnalogFilterController.currentInputVarianceDrpm
                outputWanderDrpm: PumpAnalogFilterController.currentOutputVarianceDrpm
                onNumSamplesRequested: count => PumpAnalogFilterController.setCurrentNumSamples(count)
            }
            FilterPlot {
                objectName: "currentFilterPlot"
                Layout.fillWidth: true
                filterSource: PumpAnalogFilterController
                input: "current"
                inputUnit: qsTr("mA")
                inputScale: 0.001
            }
        }
    }
    Component {
        id: voltageMode
        ColumnLayout {
            spacing: BwSpacing.medium
            Component.onCompleted: {
                PumpAnalogFilterController.getVoltageNumSamples()
                PumpAnalogFilterController.getVoltageNumSamplesMax()
                PumpAnalogFilterController.subscribeVoltageFilterData()
            }
            Component.onDestruction: PumpAnalogFilterController.unsubscribeVoltageFilterData()
            SpeedRangePanel {
                objectName: "voltageRangePanel"
                Layout.fillWidth: true
                title: qsTr("Voltage input (V)")
                profile: PumpSpeedRangeController.voltageProfileDrpm
                limits: PumpSpeedRangeController.voltageLimitsDrpm
                resolutionDrpm: PumpSpeedRangeController.voltageSpeedResolutionDrpm
                targetSpeedDrpm: PumpSpeedRangeController.voltageTargetSpeedDrpm
                inputValue: PumpValuesController.pumpInputVoltageMv / 1000
                inputUnit: qsTr("V")
                inputScale: 1000
                inputDecimals: 2
                onProfileRequested: (minSpeed, maxSpeed, minInput, maxInput, hysteresis) =>
                    PumpSpeedRangeController.setVoltageSpeedRangeDrpm(minSpeed, maxSpeed, minInput, maxInput, hysteresis)
            }
            FilterPanel {
                objectName: "voltageFilterPanel"
                Layout.fillWidth: true
                numSamples: PumpAnalogFilterController.voltageNumSamples
                numSamplesMin: PumpAnalogFilterController.voltageNumSamplesMin
                numSamplesMax: PumpAnalogFilterController.voltageNumSamplesMax
                inputWanderDrpm: PumpAnalogFilterController.voltageInputVarianceDrpm
                outputWanderDrpm: PumpAnalogFilterController.voltageOutputVarianceDrpm
                onNumSamplesRequested: count => PumpAnalogFilterController.setVoltageNumSamples(count)
            }
            FilterPlot {
                objectName: "voltageFilterPlot"
                Layout.fillWidth: true
                filterSource: PumpAnalogFilterController
                input: "voltage"
                inputUnit: qsTr("V")
                inputScale: 0.001
            }
        }
    }
    Component {
        id: frequencyMode
        SpeedRangePanel {
            objectName: "frequencyRangePanel"
            title: qsTr("Frequency input (Hz)")
            profile: PumpSpeedRangeController.frequencyProfileDrpm
            limits: PumpSpeedRangeController.frequencyLimitsDrpm
            resolutionDrpm: PumpSpeedRangeController.frequencySpeedResolutionDrpm
            targetSpeedDrpm: PumpSpeedRangeController.frequencyTargetSpeedDrpm
            inputValue: PumpValuesController.pumpInputFrequencyHz
            inputUnit: qsTr("Hz")
            inputScale: 1
            inputDecimals: 0
            onProfileRequested: (minSpeed, maxSpeed, minInput, maxInput, hysteresis) =>
                PumpSpeedRangeController.setFrequencySpeedRangeDrpm(minSpeed, maxSpeed, minInput, maxInput, hysteresis)
        }
    }
    Component {
        id: enableLineMode
        EnableLinePanel {
            objectName: "enableLinePanel"
            speedDrpm: PumpSpeedRangeController.enableLineTargetSpeedDrpm
            lowerLimitDrpm: PumpSpeedRangeController.enableLineLowerLimitDrpm
            upperLimitDrpm: PumpSpeedRangeController.enableLineUpperLimitDrpm
            asserted: PumpValuesController.enableLineAsserted
            Component.onCompleted: PumpSpeedRangeController.getEnableLineLimits()
            onSpeedRequested: speed => PumpSpeedRangeController.setEnableLineSpeedDrpm(speed)
        }
    }
    Component {
        id: networkMode
        InstructionNote {
            objectName: "networkNote"
            text: qsTr("The pump takes its speed from the network. Its network settings are on the Setup tab.")
        }
    }
    Component {
        id: noInput
        InstructionNote {
            objectName: "noInputNote"
            text: PumpSettingsController.pumpControlInput.length > 0
                  ? qsTr("No control input is chosen: the pump ignores its speed inputs.")
                  : qsTr("Waiting for the pump to report its control input\u2026")
        }
    }
}
