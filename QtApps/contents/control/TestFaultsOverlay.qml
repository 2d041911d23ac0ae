import QtQuick
import BwConstants
import BwLib
import cpp.PumpSimulatedFaultsModel

// The faults a technician can make the pump raise, one button each. A row turns red only once
// the pump confirms the fault, and clears with the pump's fault word.
ModalOverlay {
    id: overlay

    title: qsTr("Test faults")
    text: qsTr("Each fault is raised at the pump and shown in the pump status as a real one would be. Clear them there.")
    confirmText: ""
    cancelText: qsTr("Close")

    Column {
        width: parent.width
        spacing: BwSpacing.xxs
        Repeater {
            model: PumpSimulatedFaultsModel
            delegate: FaultButton {
                required property int index
                required title
                required name
                required active
                objectName: "testFault" + index
                width: parent ? parent.width : implicitWidth
                onRaise: PumpSimulatedFaultsModel.enableFault(index)
            }
        }
    }
}
