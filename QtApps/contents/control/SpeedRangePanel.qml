import QtQuick
import QtQuick.Layouts
import BwConstants
import BwLib

// The speed range of an analog input: two input points mapped onto two speeds, the input's
// hysteresis, each within the limits the pump reported, with the speed the pump derives from the
// present input and the resolution of that speed. A changed figure sends the whole profile.
// Profiles come in the pump's units (tenths of rpm; microamperes, millivolts or hertz); the
// fields show rpm and the input's display unit.
Box {
    id: panel

    /// The profile and its limits as the pump reported them (fields MinimumSpeedDrpm,
    /// MaximumSpeedDrpm, MinimumInput, MaximumInput, Hysteresis).
    property var profile
    property var limits
    /// Tenths of rpm one measurement step is worth; 0 for a degenerate profile.
    property real resolutionDrpm: 0
    /// The speed the present input asks for, tenths of rpm.
    property int targetSpeedDrpm: 0
    /// The present input, in the display unit.
    property real inputValue: 0
    /// The display unit of the input ("mA", "V", "Hz") and how many pump units make one of it.
    property string inputUnit: ""
    property real inputScale: 1
    /// Decimals of the input fields.
    property int inputDecimals: 1

    /// A complete profile to send, in the pump's units.
    signal profileRequested(real minSpeedDrpm, real maxSpeedDrpm, real minInput, real maxInput,
                            real hysteresis)

    readonly property real inputStep: Math.pow(10, -inputDecimals)

    function field(name) {
        return panel.profile ? panel.profile[name] : 0
    }
    function limit(name) {
        return panel.limits ? panel.limits[name] : 0
    }
    // Sends the profile with one field changed: `changes` maps field names to pump units.
    function send(changes) {
        const next = {
            MinimumSpeedDrpm: field("MinimumSpeedDrpm"), MaximumSpeedDrpm: field("MaximumSpeedDrpm"),
            MinimumInput: field("MinimumInput"), MaximumInput: field("MaximumInput"),
            Hysteresis: field("Hysteresis")
        }
        Object.assign(next, changes)
        profileRequested(next.MinimumSpeedDrpm, next.MaximumSpeedDrpm, next.MinimumInput,
                         next.MaximumInput, next.Hysteresis)
    }
    function toPump(displayValue) {
        return Math.round(displayValue * panel.inputScale)
    }

    SettingRow {
        label: qsTr("Minimum speed")
        QuantityInput {
            objectName: "minimumSpeedInput"
            label: qsTr("Minimum speed")
            unit: qsTr("RPM")
            value: panel.field("MinimumSpeedDrpm") / 10
            minimum: panel.limit("MinimumSpeedDrpm") / 10
            maximum: panel.limit("MaximumSpeedDrpm") / 10
            onCommitted: rpm => panel.send({ MinimumSpeedDrpm: Math.round(rpm * 10) })
        }
    }
    SettingRow {
        label: qsTr("Maximum speed")
        QuantityInput {
            objectName: "maximumSpeedInput"
            label: qsTr("Maximum speed")
            unit: qsTr("RPM")
            value: panel.field("MaximumSpeedDrpm") / 10
            minimum: panel.limit("MinimumSpeedDrpm") / 10
            maximum: panel.limit("MaximumSpeedDrpm") / 10
            onCommitted: rpm => panel.send({ MaximumSpeedDrpm: Math.round(rpm * 10) })
        }
    }
    SettingRow {
        label: qsTr("Minimum input")
        QuantityInput {
            objectName: "minimumInputInput"
            label: qsTr("Minimum input")
            unit: panel.inputUnit
            decimals: panel.inputDecimals
            value: panel.field("MinimumInput") / panel.inputScale
            // Below the maximum input: equal inputs would leave no speed range.
            minimum: panel.limit("MinimumInput") / panel.inputScale
            maximum: panel.field("MaximumInput") / panel.inputScale - panel.inputStep
            rangeMessage: qsTr("Minimum input must be from %1 to just below the maximum input")
                          .arg(BwFormat.number(minimum, decimals))
            onCommitted: input => panel.send({ MinimumInput: panel.toPump(input) })
        }
    }
    SettingRow {
        label: qsTr("Maximum input")
        QuantityInput {
            objectName: "maximumInputInput"
            label: qsTr("Maximum input")
            unit: panel.inputUnit
            decimals: panel.inputDecimals
            value: panel.field("MaximumInput") / panel.inputScale
            minimum: panel.field("MinimumInput") / panel.inputScale + panel.inputStep
            maximum: panel.limit("MaximumInput") / panel.inputScale
            rangeMessage: qsTr("Maximum input must be above the minimum input and at most %1")
                          .arg(BwFormat.number(maximum, decimals))
            onCommitted: input => panel.send({ MaximumInput: panel.toPump(input) })
        }
    }
    SettingRow {
        label: qsTr("Hysteresis")
        QuantityInput {
            objectName: "hysteresisInput"
            label: qsTr("Hysteresis")
            unit: panel.inputUnit
            decimals: panel.inputDecimals
            value: panel.field("Hysteresis") / panel.inputScale
            minimum: 0
            maximum: panel.limit("Hysteresis") / panel.inputScale
            onCommitted: input => panel.send({ Hysteresis: panel.toPump(input) })
        }
    }
    Divider {
        Layout.fillWidth: true
    }
    SettingRow {
        label: qsTr("Input now")
        Text {
            text: BwFormat.number(panel.inputValue, panel.inputDecimals) + " " + panel.inputUnit
            font.pixelSize: BwFonts.body
            color: BwColours.text
        }
    }
    SettingRow {
        label: qsTr("Target speed")
        Text {
            objectName: "targetSpeed"
            text: qsTr("%1 RPM").arg(BwFormat.rpm(panel.targetSpeedDrpm))
            font.pixelSize: BwFonts.body
            color: BwColours.text
        }
    }
    SettingRow {
        label: qsTr("Resolution")
        Text {
            objectName: "resolution"
            text: panel.resolutionDrpm > 0
                  ? qsTr("%1 RPM per input step").arg(BwFormat.rpm(panel.resolutionDrpm))
                  : qsTr("None: the two inputs are equal")
            font.pixelSize: BwFonts.body
            color: panel.resolutionDrpm > 0 ? BwColours.text : BwColours.warning
        }
    }
}
