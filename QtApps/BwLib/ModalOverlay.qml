import QtQuick
import QtQuick.Templates as T
import BwConstants
import BwControls

// A modal dialog over a dimmed window: a title, a message or content of its own, and up to two
// buttons. Enter confirms, Escape cancels; either closes it, so it can never stay stuck open.
T.Popup {
    id: overlay

    /// The heading.
    property string title: ""
    /// The message under the heading.
    property string text: ""
    /// The confirming button's text; no such button when empty.
    property string confirmText: qsTr("Continue")
    /// The cancelling button's text; no such button when empty.
    property string cancelText: qsTr("Cancel")
    /// Whether confirming does something that cannot be undone (a red button).
    property bool destructive: false
    /// Content shown between the message and the buttons.
    default property alias content: extra.data

    signal confirmed()
    signal cancelled()

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(BwSpacing.dialogWidth, parent ? parent.width - 2 * BwSpacing.large : BwSpacing.dialogWidth)
    implicitHeight: contentHeight + topPadding + bottomPadding
    modal: true
    focus: true
    padding: BwSpacing.large
    closePolicy: T.Popup.CloseOnEscape

    onClosed: if (!accepted) cancelled()
    onOpened: accepted = false
    property bool accepted: false

    // The height left for the content between the message and the buttons.
    readonly property real contentRoom: Math.max(BwSpacing.controlHeight,
        (parent ? parent.height : BwSpacing.appMinHeight) - 2 * BwSpacing.large - topPadding
        - bottomPadding - (titleText.visible ? titleText.height + column.spacing : 0)
        - (messageText.visible ? messageText.height + column.spacing : 0)
        - buttonRow.height - column.spacing)

    function confirm() {
        accepted = true
        close()
        confirmed()
    }

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.35)
    }

    background: Rectangle {
        color: BwColours.surfaceRaised
        radius: BwSpacing.radius
        border.width: BwSpacing.borderWidth
        border.color: BwColours.border
    }

    Column {
        id: column
        width: overlay.availableWidth
        spacing: BwSpacing.medium
        Keys.onReturnPressed: overlay.confirm()
        Keys.onEnterPressed: overlay.confirm()
        Accessible.role: Accessible.Dialog
        Accessible.name: overlay.title
        Text {
            id: titleText
            width: parent.width
            text: overlay.title
            visible: text.length > 0
            font.pixelSize: BwFonts.heading
            font.weight: BwFonts.bold
            color: BwColours.text
            wrapMode: Text.Wrap
        }
        Text {
            id: messageText
            objectName: "overlayMessage"
            width: parent.width
            text: overlay.text
            visible: text.length > 0
            font.pixelSize: BwFonts.body
            color: BwColours.text
            wrapMode: Text.Wrap
        }
        // Content taller than the window scrolls; the title and the buttons always show.
        ScrollView {
            id: scroller
            width: parent.width
            height: Math.min(extra.implicitHeight, overlay.contentRoom)
            visible: extra.children.length > 0
            contentWidth: availableWidth
            contentHeight: extra.implicitHeight
            clip: true
            Column {
                id: extra
                width: scroller.availableWidth
                spacing: BwSpacing.small
            }
        }
        Row {
            id: buttonRow
            anchors.right: parent.right
            spacing: BwSpacing.small
            Button {
                objectName: "overlayCancel"
                visible: overlay.cancelText.length > 0
                text: overlay.cancelText
                onClicked: overlay.close()
            }
            Button {
                objectName: "overlayConfirm"
                visible: overlay.confirmText.length > 0
                focus: true
                kind: overlay.destructive ? "danger" : "primary"
                text: overlay.confirmText
                onClicked: overlay.confirm()
            }
        }
    }
}
