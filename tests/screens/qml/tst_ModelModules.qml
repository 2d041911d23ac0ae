import QtQuick
import QtTest
import cpp.PumpHeadsSortFilterProxyModel
import cpp.PumpFaultsSortFilterProxyModel
import cpp.PumpLogModel
import cpp.PumpTorqueTargetsModel
import cpp.PumpSimulatedFaultsModel

// Each model module as a screen uses it: a property or the row count, an invokable, and for the
// fault models their roles by name (a delegate with a missing role is not created).
TestCase {
    name: "ModelModules"

    Repeater {
        id: simulatedFaults
        model: PumpSimulatedFaultsModel
        delegate: Item {
            required property string name
            required property string title
            required property bool active
        }
    }

    Repeater {
        id: faults
        model: PumpFaultsSortFilterProxyModel
        delegate: Item {
            required property string name
            required property bool active
        }
    }

    function test_pumpHeads() {
        compare(PumpHeadsSortFilterProxyModel.rowCount(), 0)
        PumpHeadsSortFilterProxyModel.setIsStepperPump(false)
        PumpHeadsSortFilterProxyModel.setNameFilter("")
        verify(PumpHeadsSortFilterProxyModel.getPumpHeads())
    }

    function test_faults() {
        compare(PumpFaultsSortFilterProxyModel.faultActive, false)
        compare(faults.itemAt(4).name, "Stall")
        PumpFaultsSortFilterProxyModel.setFilterRegularExpression("true")
        compare(faults.count, 0)
    }

    function test_log() {
        compare(PumpLogModel.rowCount(), 0)
        verify(PumpLogModel.getPumpLog())
    }

    function test_torqueTargets() {
        compare(PumpTorqueTargetsModel.currentIndex, -1)
        verify(PumpTorqueTargetsModel.getTorqueTargets())
    }

    function test_simulatedFaults() {
        compare(simulatedFaults.itemAt(7).title, "Overcurrent")
        compare(simulatedFaults.itemAt(7).active, false)
        verify(PumpSimulatedFaultsModel.enableFault(4))
    }
}
