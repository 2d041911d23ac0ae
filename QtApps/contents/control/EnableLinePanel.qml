import QtQuick
import BwConstants
import BwLib

// Enable-line control: the pump runs at one set speed while its enable line is asserted.
Box {
    id: panel

    /// The set speed and its limits, tenths of rpm.
    property int speedDrpm: 0
    property int lowerLimitDrpm: 0
    property int upperLimitDrpm: 0
    /// Whether the enable line is asserted now.
    property bool asserted: false

    signal speedRequested(int speedDrpm)

    title: qsTr("Enable line")

    SettingRow {
        label: qsTr("Speed")
        QuantityInput {
            objectName: "enableLineSpeedInput"
            label: qsTr("Speed")
            unit: qsTr("RPM")
            value: panel.speedDrpm / 10
            minimum: panel.lowerLimitDrpm / 10
            maximum: panel.upperLimitDrpm / 10
            onCommitted: rpm => panel.speedRequested(Math.round(rpm * 10))
        }
    }
    SettingRow {
        label: qsTr("Enable line")
        Text {
            text: panel.asserted ? qsTr("Asserted: running") : qsTr("Not asserted: stopped")
            font.pixelSize: BwFonts.body
            color: BwColours.text
        }
    }
}
