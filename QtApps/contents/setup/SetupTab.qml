import QtQuick
import BwConstants
import BwControls
import BwLib

// The setup tab: the pump head, acceleration, deceleration, prime speed, the motor torque of a
// stepper pump and the network settings of a network pump.
ScrollView {
    id: tab

    contentWidth: availableWidth
    clip: true

    Column {
        x: BwSpacing.large
        y: BwSpacing.large
        width: Math.min(tab.availableWidth - 2 * BwSpacing.large, BwSpacing.contentMaxWidth)
        spacing: BwSpacing.medium
        InstructionNote {
            width: parent.width
            text: qsTr("The pump head, acceleration, deceleration and prime speed are set here.")
        }
    }
}
