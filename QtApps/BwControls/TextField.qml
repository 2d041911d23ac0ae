import QtQuick
import QtQuick.Templates as T
import BwConstants

// A one-line text field. `invalid` marks it red while what was typed cannot be taken.
T.TextField {
    id: control

    /// Whether the text cannot be taken as it is (drawn with the error colour).
    property bool invalid: false

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, contentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, contentHeight + topPadding + bottomPadding)
    padding: BwSpacing.small
    font.pixelSize: BwFonts.body
    color: enabled ? BwColours.text : BwColours.textDisabled
    placeholderTextColor: BwColours.textDisabled
    selectionColor: BwColours.accentSurface
    selectedTextColor: BwColours.text
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true

    Accessible.role: Accessible.EditableText
    Accessible.name: control.placeholderText

    Text {
        x: control.leftPadding
        y: control.topPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height - control.topPadding - control.bottomPadding
        text: control.placeholderText
        font: control.font
        color: control.placeholderTextColor
        verticalAlignment: control.verticalAlignment
        visible: !control.length && !control.preeditText
        elide: Text.ElideRight
    }

    background: Rectangle {
        implicitWidth: BwSpacing.fieldWidth
        implicitHeight: BwSpacing.controlHeight
        radius: BwSpacing.radius
        color: control.enabled ? BwColours.surfaceRaised : BwColours.surface
        border.width: control.activeFocus || control.invalid ? BwSpacing.focusWidth : BwSpacing.borderWidth
        border.color: control.invalid ? BwColours.error
                    : control.activeFocus ? BwColours.focusRing
                    : control.enabled ? BwColours.border : BwColours.disabled
    }
}
