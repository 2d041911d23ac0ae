import QtQuick
import QtQuick.Templates as T
import BwConstants

// A drop-down choice. The model is an array of texts (or of objects whose `textRole` names the
// text), or an item model whose role `textRole` is the text.
T.ComboBox {
    id: control

    implicitWidth: Math.max(implicitBackgroundWidth + leftInset + rightInset, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight + topInset + bottomInset, implicitContentHeight + topPadding + bottomPadding, implicitIndicatorHeight + topPadding + bottomPadding)
    leftPadding: BwSpacing.small
    rightPadding: BwSpacing.small + indicator.width + spacing
    spacing: BwSpacing.small
    font.pixelSize: BwFonts.body
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.ComboBox
    Accessible.name: control.displayText

    // The delegate reads the combo box's own properties. It runs in this file's
    // scope, which the Qt 6.4 linter cannot see from inside a delegate; tests check the lines.
    // The entry's text comes from the context the view gives each delegate (`model`,
    // `modelData`), which differs between arrays and item models.
    delegate: T.ItemDelegate {
        id: option
        // qmllint disable unqualified
        readonly property string optionText: control.textRole.length === 0 ? modelData
            : Array.isArray(control.model) ? modelData[control.textRole] : model[control.textRole]
        width: ListView.view ? ListView.view.width : implicitWidth
        implicitHeight: BwSpacing.controlHeight
        padding: BwSpacing.small
        highlighted: control.highlightedIndex === index
        font: control.font
        // qmllint enable unqualified
        objectName: "option_" + optionText
        Accessible.role: Accessible.ListItem
        Accessible.name: option.optionText
        contentItem: Text {
            text: option.optionText
            font: option.font
            color: option.enabled ? BwColours.text : BwColours.textDisabled
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            color: option.highlighted ? BwColours.accentSurface : BwColours.surfaceRaised
        }
    }

    indicator: Text {
        x: control.width - width - BwSpacing.small
        y: (control.height - height) / 2
        text: "\u25BE"
        font.pixelSize: BwFonts.heading
        color: control.enabled ? BwColours.textMuted : BwColours.textDisabled
    }

    contentItem: Text {
        text: control.displayText
        font: control.font
        color: control.enabled ? BwColours.text : BwColours.textDisabled
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    background: Rectangle {
        implicitWidth: BwSpacing.fieldWideWidth
        implicitHeight: BwSpacing.controlHeight
        radius: BwSpacing.radius
        color: control.enabled ? BwColours.surfaceRaised : BwColours.surface
        border.width: BwSpacing.borderWidth
        border.color: control.enabled ? BwColours.border : BwColours.disabled
        FocusRing {
            shown: control.visualFocus
        }
    }

    popup: T.Popup {
        y: control.height
        width: control.width
        implicitHeight: Math.min(contentItem.implicitHeight, control.Window.height / 2)
        padding: BwSpacing.xxs
        contentItem: ListView {
            objectName: "comboList"
            clip: true
            // Every entry exists, also those scrolled out of view (lists here are short), so that
            // keyboard and screen-reader users reach each one.
            cacheBuffer: BwSpacing.listCacheExtent
            implicitHeight: contentHeight
            model: control.delegateModel
            currentIndex: control.highlightedIndex
            T.ScrollBar.vertical: ScrollBar {}
        }
        background: Rectangle {
            color: BwColours.surfaceRaised
            border.width: BwSpacing.borderWidth
            border.color: BwColours.border
            radius: BwSpacing.radius
        }
    }
}
