import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import contents

// The motor torque of a stepper pump: one of the drive's torque targets. The pump restarts to
// take a new one, so the choice is confirmed first.
Box {
    id: panel

    /// The torque targets: an item model with the roles "text" ("1.20 A") and "torqueIndex".
    property var targets
    /// The index the pump holds; -1 until reported.
    property int currentIndex: -1

    signal torqueRequested(int index)

    title: qsTr("Motor torque")

    SettingRow {
        label: qsTr("Motor current")
        RowLayout {
            spacing: BwSpacing.small
            ComboBox {
                objectName: "torqueChooser"
                model: panel.targets
                textRole: "text"
                currentIndex: panel.currentIndex
                Accessible.name: qsTr("Motor current")
                onActivated: index => {
                    if (index !== panel.currentIndex) {
                        restartWarning.index = index
                        restartWarning.open()
                    }
                    currentIndex = Qt.binding(() => panel.currentIndex)
                }
            }
            AppliedNote {
                id: applied
                restarts: true
            }
        }
    }
    InstructionNote {
        Layout.fillWidth: true
        text: qsTr("A higher current gives more torque and a warmer motor. The pump restarts to take a new one.")
    }

    ModalOverlay {
        id: restartWarning
        objectName: "torqueRestartWarning"
        property int index: -1
        title: qsTr("Restart the pump?")
        text: qsTr("The pump restarts to take the new motor current. It stops for a few seconds and the connection is made again.")
        confirmText: qsTr("Restart")
        destructive: true
        onConfirmed: {
            panel.torqueRequested(index)
            applied.watch()
        }
    }
}
