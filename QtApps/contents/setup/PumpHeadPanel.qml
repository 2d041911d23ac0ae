import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents

// The fitted pump head: chosen from the heads the drive supports. A head rated slower than the
// speeds the pump is set to asks first, since the pump then reduces those speeds.
Box {
    id: panel

    /// The heads to choose from: an item model with the roles "name", "description" and
    /// "ratedspeeddrpm" (the pump-head proxy model).
    property var heads
    /// The catalogue name of the fitted head, as the pump reports it.
    property string currentHead: ""
    /// The highest speed the pump is set to anywhere (fixed, prime, analog ranges, enable line),
    /// tenths of rpm.
    property int highestSetSpeedDrpm: 0

    signal headRequested(string name)

    title: qsTr("Pump head")

    // The row of a head by name, and a field of a row, read through the model's own API.
    function rowOf(name) {
        if (!heads)
            return -1
        for (let row = 0; row < heads.rowCount(); ++row) {
            if (heads.data(heads.index(row, 0), 2) === name)
                return row
        }
        return -1
    }
    function field(row, role) {
        return heads && row >= 0 ? heads.data(heads.index(row, 0), role) : undefined
    }
    // Counts the model's changes, so that what depends on its rows is worked out again.
    property int rowsRevision: 0
    readonly property int currentRow: rowsRevision >= 0 ? rowOf(currentHead) : -1

    Connections {
        target: panel.heads
        ignoreUnknownSignals: true
        function onModelReset() { panel.rowsRevision++ }
        function onRowsInserted() { panel.rowsRevision++ }
        function onRowsRemoved() { panel.rowsRevision++ }
        function onLayoutChanged() { panel.rowsRevision++ }
    }

    function choose(row) {
        const name = field(row, 2)
        const rated = field(row, 3)
        if (name === currentHead)
            return
        if (rated > 0 && rated < highestSetSpeedDrpm) {
            slowerHead.name = name
            slowerHead.text = qsTr("The maximum speed of this pump head is %1 RPM, all speed settings greater than this will be reduced.")
                              .arg(BwFormat.rpm(rated))
            slowerHead.open()
            return
        }
        send(name)
    }
    function send(name) {
        headRequested(name)
        applied.watch()
    }
    onCurrentHeadChanged: applied.confirm()

    SettingRow {
        label: qsTr("Pump head")
        RowLayout {
            spacing: BwSpacing.small
            ComboBox {
                id: chooser
                objectName: "pumpHeadChooser"
                model: panel.heads
                textRole: "name"
                currentIndex: panel.currentRow
                displayText: panel.currentHead.length > 0 ? panel.currentHead : qsTr("Unknown")
                Accessible.name: qsTr("Pump head")
                onActivated: row => {
                    panel.choose(row)
                    currentIndex = Qt.binding(() => panel.currentRow)
                }
            }
            AppliedNote {
                id: applied
            }
        }
    }
    Text {
        Layout.fillWidth: true
        visible: text.length > 0
        text: {
            const description = panel.field(panel.currentRow, 1)
            const rated = panel.field(panel.currentRow, 3)
            return description ? qsTr("%1 Rated to %2 RPM.").arg(description).arg(BwFormat.rpm(rated)) : ""
        }
        font.pixelSize: BwFonts.small
        color: BwColours.textMuted
        wrapMode: Text.Wrap
    }

    ModalOverlay {
        id: slowerHead
        objectName: "slowerHeadWarning"
        property string name: ""
        title: qsTr("Warning")
        confirmText: qsTr("Continue")
        cancelText: qsTr("Cancel")
        Text {
            width: parent ? parent.width : implicitWidth
            text: qsTr("This may include analogue speed inputs, fixed speed settings and the prime speed.")
            font.pixelSize: BwFonts.body
            color: BwColours.text
            wrapMode: Text.Wrap
        }
        onConfirmed: panel.send(name)
    }
}
