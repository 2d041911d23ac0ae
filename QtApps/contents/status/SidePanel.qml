import QtQuick
import QtQuick.Layouts
import BwConstants
import BwControls
import BwLib
import cpp.LinkStatsController
import cpp.PumpFaultsSortFilterProxyModel
import cpp.PumpValuesController
import contents

// The collapsible panel at the left of the main screen: "Pump status", the live readings, the
// active faults with "Clear Faults", "About" and the logo. Its state colours it: "error" while a
// fault is active, "warning" while a reading is out of range, else "default".
Rectangle {
    id: panel

    /// Whether the panel is open (full width) or collapsed to its narrow form.
    property bool open: true
    /// Whether the pump reports an active fault.
    property bool faultActive: PumpFaultsSortFilterProxyModel.faultActive
    /// Whether a reading is out of its normal range.
    property bool warning: pumpStatus.warning

    /// The user cleared the faults ("Faults Cleared" is the main screen's to show).
    signal faultsCleared()
    /// The user asked for the about overlay.
    signal aboutRequested()
    /// The user asked for the pump-information overlay.
    signal pumpInformationRequested()

    state: faultActive ? "error" : warning ? "warning" : "default"
    states: [
        State { name: "default" },
        State { name: "warning" },
        State { name: "error" }
    ]

    implicitWidth: open ? BwSpacing.sidePanelWidth : BwSpacing.sidePanelCollapsedWidth
    color: BwColours.panelColour(state)

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Pump status")

    // The rule on the panel's right edge carries the state's colour.
    Rectangle {
        anchors.right: parent.right
        width: BwSpacing.ruleWidth
        height: parent.height
        color: BwColours.stateColour(panel.state)
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: panel.open ? BwSpacing.medium : BwSpacing.small
        anchors.rightMargin: (panel.open ? BwSpacing.medium : BwSpacing.small) + BwSpacing.ruleWidth
        spacing: BwSpacing.medium

        RowLayout {
            Layout.fillWidth: true
            Text {
                Layout.fillWidth: true
                visible: panel.open
                text: qsTr("Pump status")
                font.pixelSize: BwFonts.heading
                font.weight: BwFonts.bold
                color: BwColours.text
            }
            Button {
                objectName: "collapseButton"
                Layout.alignment: panel.open ? Qt.AlignRight : Qt.AlignHCenter
                kind: "flat"
                text: panel.open ? "\u2039" : "\u203A"
                implicitWidth: BwSpacing.controlHeight
                Accessible.name: panel.open ? qsTr("Collapse the pump status") : qsTr("Open the pump status")
                onClicked: panel.open = !panel.open
            }
        }

        PumpStatus {
            id: pumpStatus
            objectName: "pumpStatus"
            Layout.fillWidth: true
            collapsed: !panel.open
        }

        SvgImg {
            Layout.alignment: Qt.AlignHCenter
            visible: !panel.open && panel.faultActive
            width: BwSpacing.icon
            height: BwSpacing.icon
            source: BwIcons.error
            color: BwColours.error
            Accessible.name: qsTr("Fault")
        }

        FaultList {
            objectName: "faultList"
            Layout.fillWidth: true
            visible: panel.open && panel.faultActive
            faults: PumpFaultsSortFilterProxyModel
        }

        Button {
            objectName: "clearFaultsButton"
            Layout.fillWidth: true
            visible: panel.open && panel.faultActive
            kind: "danger"
            text: qsTr("Clear Faults")
            onClicked: {
                PumpValuesController.acknowledgeFaults()
                panel.faultsCleared()
            }
        }

        Item {
            Layout.fillHeight: true
        }

        LinkHealthStrip {
            objectName: "linkHealthStrip"
            Layout.fillWidth: true
            collapsed: !panel.open
            health: LinkStatsController.health
            portName: LinkStatsController.portName
            pingMs: LinkStatsController.pingLastMs
            problemsPerMinute: LinkStatsController.lineProblemsPerMinute
            recording: LinkStatsController.recording
            onClicked: linkHealth.open()
        }
        LinkHealthOverlay {
            id: linkHealth
        }

        // On a short panel the two buttons share a row, so that nothing is cut at the smallest
        // window even with a fault listed.
        GridLayout {
            id: panelButtons
            Layout.fillWidth: true
            columns: panel.open && panel.height < BwSpacing.sidePanelLogoMinHeight ? 2 : 1
            columnSpacing: BwSpacing.small
            rowSpacing: BwSpacing.medium

            Button {
                objectName: "pumpInformationButton"
                Layout.fillWidth: panel.open
                Layout.alignment: Qt.AlignHCenter
                kind: "flat"
                text: !panel.open ? "i"
                      : panelButtons.columns === 1 ? qsTr("Pump information") : qsTr("Pump info")
                Accessible.name: qsTr("Pump information")
                onClicked: panel.pumpInformationRequested()
            }
            Button {
                objectName: "aboutButton"
                // Beside the other button it takes only its text's width.
                Layout.fillWidth: panel.open && panelButtons.columns === 1
                Layout.alignment: Qt.AlignHCenter
                kind: "flat"
                text: panel.open ? qsTr("About") : "?"
                Accessible.name: qsTr("About")
                onClicked: panel.aboutRequested()
            }
        }

        Logo {
            Layout.alignment: Qt.AlignHCenter
            visible: panel.open && panel.height >= BwSpacing.sidePanelLogoMinHeight
        }
    }
}
