import QtQuick
import BwConstants
import BwControls

// A number with its unit: shows `value` (what the pump holds) until the user types, checks what
// was typed against the range and says why a value is refused, and emits `committed` only for a
// valid, changed value, on Enter or when the field loses focus. Escape puts back the pump's
// value. Nothing is sent until the value is valid: the screen sends in `onCommitted`.
FocusScope {
    id: input

    /// What the pump holds; shown whenever the user is not editing.
    property real value: 0
    /// Shown beside the field, for example "RPM".
    property string unit: ""
    /// The label read out by a screen reader and used in the default message.
    property string label: ""
    /// The range a typed value must lie in, inclusive.
    property real minimum: 0
    property real maximum: 100
    /// Decimals shown and accepted.
    property int decimals: 1
    /// Said when a typed value is outside the range; by default "<label> must be between <min>
    /// and <max>".
    property string rangeMessage: qsTr("%1 must be between %2 and %3").arg(label)
        .arg(BwFormat.number(minimum, decimals)).arg(BwFormat.number(maximum, decimals))
    /// Why the last typed value was refused; empty while the field holds a valid value.
    readonly property string errorText: field.errorText
    /// Whether the field holds text the user has typed and not yet committed or reverted.
    readonly property bool editing: field.edited

    /// A valid value, different from `value`, was entered.
    signal committed(real value)

    implicitWidth: Math.max(row.implicitWidth, message.implicitWidth)
    implicitHeight: row.implicitHeight + (message.visible ? message.implicitHeight + BwSpacing.xxs : 0)
    activeFocusOnTab: true

    Accessible.role: Accessible.EditableText
    Accessible.name: input.label
    Accessible.description: input.errorText

    function show() {
        field.text = BwFormat.number(input.value, input.decimals)
        field.edited = false
        field.errorText = ""
    }
    onValueChanged: if (!field.edited) show()
    onDecimalsChanged: if (!field.edited) show()
    Component.onCompleted: show()

    Row {
        id: row
        spacing: BwSpacing.small

        TextField {
            id: field
            objectName: "quantityField"
            /// Set as soon as the user types, cleared by commit and revert.
            property bool edited: false
            property string errorText: ""

            focus: true
            width: BwSpacing.fieldWidth
            horizontalAlignment: TextInput.AlignRight
            inputMethodHints: Qt.ImhFormattedNumbersOnly
            invalid: errorText.length > 0
            placeholderText: input.label
            Accessible.name: input.label

            onTextEdited: edited = true
            onAccepted: commit()
            onActiveFocusChanged: if (!activeFocus && edited) commit()
            Keys.onEscapePressed: event => {
                input.show()
                event.accepted = true
            }

            function commit() {
                const typed = BwFormat.parse(text)
                if (isNaN(typed)) {
                    errorText = qsTr("Enter a number")
                    return
                }
                const rounded = Number(typed.toFixed(input.decimals))
                if (rounded < input.minimum || rounded > input.maximum) {
                    errorText = input.rangeMessage
                    return
                }
                const changed = Number(input.value.toFixed(input.decimals)) !== rounded
                input.show()
                if (changed)
                    input.committed(rounded)
            }
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: input.unit.length > 0
            text: input.unit
            font.pixelSize: BwFonts.body
            color: input.enabled ? BwColours.textMuted : BwColours.textDisabled
        }
    }
    Text {
        id: message
        objectName: "quantityMessage"
        anchors.top: row.bottom
        anchors.topMargin: BwSpacing.xxs
        width: Math.max(row.implicitWidth, implicitWidth)
        visible: field.errorText.length > 0
        text: field.errorText
        font.pixelSize: BwFonts.small
        color: BwColours.error
        wrapMode: Text.Wrap
    }
}
