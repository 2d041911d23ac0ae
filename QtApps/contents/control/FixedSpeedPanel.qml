import QtQuick
import BwConstants
import BwControls
import BwLib

// Fixed speed: the speed the application commands, its direction, whether it is enabled, and
// whether it overrides the pump's control input. Shows what the pump holds; every change goes
// out through the signals.
Box {
    id: panel

    /// The commanded speed and the highest the pump accepts, tenths of rpm.
    property int speedDrpm: 0
    property int maxSpeedDrpm: 0
    /// The pump's actual speed, tenths of rpm (for the bar).
    property int actualSpeedDrpm: 0
    /// Whether the commanded direction is clockwise.
    property bool clockwise: true
    property bool speedEnabled: false
    property bool overrideActive: false

    signal speedRequested(int speedDrpm)
    signal directionRequested(bool clockwise)
    signal enableRequested(bool enable)
    signal overrideRequested(bool active)

    title: qsTr("Fixed speed")
    Accessible.name: title

    SettingRow {
        label: qsTr("Speed")
        QuantityInput {
            objectName: "applicationSpeedInput"
            label: qsTr("Speed")
            unit: qsTr("RPM")
            decimals: 1
            value: panel.speedDrpm / 10
            minimum: 0
            maximum: panel.maxSpeedDrpm / 10
            onCommitted: rpm => panel.speedRequested(Math.round(rpm * 10))
        }
    }
    SettingRow {
        label: qsTr("Actual speed")
        Column {
            spacing: BwSpacing.xxs
            ProgressBar {
                width: BwSpacing.fieldWideWidth
                from: 0
                to: Math.max(panel.maxSpeedDrpm, 1)
                value: Math.abs(panel.actualSpeedDrpm)
                Accessible.name: qsTr("Actual speed")
            }
            Text {
                text: qsTr("%1 of %2 RPM").arg(BwFormat.rpm(Math.abs(panel.actualSpeedDrpm)))
                                          .arg(BwFormat.rpm(panel.maxSpeedDrpm))
                font.pixelSize: BwFonts.small
                color: BwColours.textMuted
            }
        }
    }
    SettingRow {
        label: qsTr("Direction")
        Row {
            spacing: BwSpacing.small
            Button {
                objectName: "clockwiseButton"
                text: qsTr("Clockwise")
                kind: panel.clockwise ? "primary" : "secondary"
                Accessible.checked: panel.clockwise
                onClicked: if (!panel.clockwise) panel.directionRequested(true)
            }
            Button {
                objectName: "anticlockwiseButton"
                text: qsTr("Counter-clockwise")
                kind: panel.clockwise ? "secondary" : "primary"
                Accessible.checked: !panel.clockwise
                onClicked: if (panel.clockwise) panel.directionRequested(false)
            }
        }
    }
    SettingRow {
        label: qsTr("Enable")
        Switch {
            objectName: "enableSwitch"
            text: checked ? qsTr("Running at the fixed speed") : qsTr("Stopped")
            checked: panel.speedEnabled
            onToggled: {
                panel.enableRequested(checked)
                checked = Qt.binding(() => panel.speedEnabled)
            }
        }
    }
    SettingRow {
        label: qsTr("Override")
        Switch {
            objectName: "overrideSwitch"
            text: qsTr("Fixed speed overrides the control input")
            checked: panel.overrideActive
            onToggled: {
                panel.overrideRequested(checked)
                checked = Qt.binding(() => panel.overrideActive)
            }
        }
    }
}
