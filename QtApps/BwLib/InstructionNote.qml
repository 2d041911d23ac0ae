import QtQuick
import BwConstants
import BwLib

// A note that tells the user something before they act: an icon and a wrapped text. `kind` is
// "info" or "warning".
Rectangle {
    id: note

    /// The text of the note.
    property string text: ""
    /// "info" or "warning".
    property string kind: "info"

    implicitWidth: BwSpacing.dialogWidth
    implicitHeight: Math.max(icon.height, body.implicitHeight) + 2 * BwSpacing.small
    radius: BwSpacing.radius
    color: kind === "warning" ? BwColours.warningSurface : BwColours.accentSurface

    Accessible.role: Accessible.StaticText
    Accessible.name: note.text

    SvgImg {
        id: icon
        x: BwSpacing.small
        y: BwSpacing.small
        width: BwSpacing.icon
        height: BwSpacing.icon
        source: note.kind === "warning" ? BwIcons.warning : BwIcons.info
        color: note.kind === "warning" ? BwColours.warning : BwColours.accent
    }
    Text {
        id: body
        anchors.left: icon.right
        anchors.leftMargin: BwSpacing.small
        anchors.right: parent.right
        anchors.rightMargin: BwSpacing.small
        y: BwSpacing.small
        text: note.text
        font.pixelSize: BwFonts.body
        color: BwColours.text
        wrapMode: Text.Wrap
    }
}
