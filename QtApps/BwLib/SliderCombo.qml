import QtQuick
import QtQuick.Templates as T
import BwConstants

// A quantity set either by dragging a slider or by typing: the slider for a quick move, the
// field for an exact figure. Both commit only on release or on a valid entry, so a drag does
// not flood the pump with requests.
Row {
    id: combo

    /// What the pump holds.
    property real value: 0
    /// The range, the unit and the label, as for QuantityInput.
    property real minimum: 0
    property real maximum: 100
    property string unit: ""
    property string label: ""
    property int decimals: 1
    /// Said when a typed value is outside the range.
    property alias rangeMessage: quantity.rangeMessage

    /// A new value was chosen.
    signal committed(real value)

    spacing: BwSpacing.medium

    T.Slider {
        id: slider
        objectName: "sliderComboSlider"
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: BwSpacing.fieldWideWidth
        implicitHeight: BwSpacing.controlHeight
        from: combo.minimum
        to: combo.maximum
        value: pressed ? value : combo.value
        live: true
        focusPolicy: Qt.StrongFocus
        Accessible.role: Accessible.Slider
        Accessible.name: combo.label
        onPressedChanged: if (!pressed) combo.committed(Number(value.toFixed(combo.decimals)))
        background: Rectangle {
            x: slider.leftPadding
            y: slider.topPadding + slider.availableHeight / 2 - height / 2
            width: slider.availableWidth
            height: BwSpacing.progressHeight / 2
            radius: height / 2
            color: BwColours.divider
            Rectangle {
                width: slider.visualPosition * parent.width
                height: parent.height
                radius: height / 2
                color: slider.enabled ? BwColours.accent : BwColours.disabled
            }
        }
        handle: Rectangle {
            x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
            y: slider.topPadding + slider.availableHeight / 2 - height / 2
            implicitWidth: BwSpacing.switchHeight
            implicitHeight: BwSpacing.switchHeight
            radius: width / 2
            color: slider.pressed ? BwColours.accentPressed : BwColours.surfaceRaised
            border.width: BwSpacing.focusWidth
            border.color: slider.visualFocus ? BwColours.focusRing
                        : slider.enabled ? BwColours.accent : BwColours.disabled
        }
    }
    QuantityInput {
        id: quantity
        anchors.verticalCenter: parent.verticalCenter
        value: combo.value
        minimum: combo.minimum
        maximum: combo.maximum
        unit: combo.unit
        label: combo.label
        decimals: combo.decimals
        onCommitted: newValue => combo.committed(newValue)
    }
}
