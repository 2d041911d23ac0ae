import QtQuick
import QtQuick.Layouts
import BwConstants
import BwLib
import contents

// How the pump speeds up and slows down, and how fast it primes. Each figure is checked against
// what the pump accepts before it is sent.
Box {
    id: panel

    /// Acceleration and deceleration, rpm per second, and the range the pump accepts for both.
    property real acceleration: 0
    property real deceleration: 0
    property real celerationMinimum: 0
    property real celerationMaximum: 0
    /// Prime speed and the highest application speed, tenths of rpm.
    property int primeSpeedDrpm: 0
    property int maxSpeedDrpm: 0

    signal accelerationRequested(real rpmPerSecond)
    signal decelerationRequested(real rpmPerSecond)
    signal primeSpeedRequested(int speedDrpm)

    title: qsTr("Speed changes and priming")

    onAccelerationChanged: accelerationApplied.confirm()
    onDecelerationChanged: decelerationApplied.confirm()
    onPrimeSpeedDrpmChanged: primeApplied.confirm()

    SettingRow {
        label: qsTr("Acceleration")
        RowLayout {
            spacing: BwSpacing.small
            QuantityInput {
                objectName: "accelerationInput"
                label: qsTr("Acceleration")
                unit: qsTr("RPM/s")
                value: panel.acceleration
                minimum: panel.celerationMinimum
                maximum: panel.celerationMaximum
                rangeMessage: qsTr("Acceleration must be within min/max")
                onCommitted: rpmPerSecond => {
                    panel.accelerationRequested(rpmPerSecond)
                    accelerationApplied.watch()
                }
            }
            AppliedNote {
                id: accelerationApplied
                Layout.alignment: Qt.AlignTop
                Layout.topMargin: BwSpacing.small
            }
        }
    }
    SettingRow {
        label: qsTr("Deceleration")
        RowLayout {
            spacing: BwSpacing.small
            QuantityInput {
                objectName: "decelerationInput"
                label: qsTr("Deceleration")
                unit: qsTr("RPM/s")
                value: panel.deceleration
                minimum: panel.celerationMinimum
                maximum: panel.celerationMaximum
                rangeMessage: qsTr("Deceleration must be within min/max")
                onCommitted: rpmPerSecond => {
                    panel.decelerationRequested(rpmPerSecond)
                    decelerationApplied.watch()
                }
            }
            AppliedNote {
                id: decelerationApplied
                Layout.alignment: Qt.AlignTop
                Layout.topMargin: BwSpacing.small
            }
        }
    }
    Text {
        text: qsTr("The pump accepts %1 to %2 RPM/s.").arg(BwFormat.number(panel.celerationMinimum, 1))
                                                     .arg(BwFormat.number(panel.celerationMaximum, 1))
        font.pixelSize: BwFonts.small
        color: BwColours.textMuted
    }
    SettingRow {
        label: qsTr("Prime speed")
        RowLayout {
            spacing: BwSpacing.small
            QuantityInput {
                objectName: "primeSpeedInput"
                label: qsTr("Prime speed")
                unit: qsTr("RPM")
                value: panel.primeSpeedDrpm / 10
                minimum: 0
                maximum: panel.maxSpeedDrpm / 10
                rangeMessage: qsTr("Prime speed must be between 0.0 and %1").arg(BwFormat.rpm(panel.maxSpeedDrpm))
                onCommitted: rpm => {
                    panel.primeSpeedRequested(Math.round(rpm * 10))
                    primeApplied.watch()
                }
            }
            AppliedNote {
                id: primeApplied
                Layout.alignment: Qt.AlignTop
                Layout.topMargin: BwSpacing.small
            }
        }
    }
}
