import QtQuick
import QtQuick.Layouts
import BwConstants
import BwLib
import contents

// The main screen: the collapsible pump-status panel on the left, the "Control", "Setup" and
// "Maintenance" tabs on the right. A pump whose software is not this application's version opens
// on "Maintenance", whose tab then carries a warning circle.
Rectangle {
    id: screen

    /// The application's version.
    property string appVersion: ""
    /// The pump's application version; empty until the pump has reported it.
    property string pumpAppVersion: ""
    /// True when the pump runs other software than this application expects: the two version
    /// texts must be equal for the pump to count as up to date.
    readonly property bool needNewPumpFirmware: pumpAppVersion.length > 0 && pumpAppVersion !== appVersion

    readonly property int controlTab: 0
    readonly property int setupTab: 1
    readonly property int maintenanceTab: 2

    color: BwColours.background

    // The version arrives after the screen is built: it decides the opening tab once.
    property bool openingTabChosen: false
    function chooseOpeningTab() {
        if (openingTabChosen || pumpAppVersion.length === 0)
            return
        openingTabChosen = true
        tabs.currentIndex = needNewPumpFirmware ? maintenanceTab : controlTab
    }
    onPumpAppVersionChanged: chooseOpeningTab()
    Component.onCompleted: {
        console.info("Main screen shown")
        chooseOpeningTab()
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        SidePanel {
            id: sidePanel
            objectName: "sidePanel"
            Layout.fillHeight: true
            Layout.preferredWidth: implicitWidth
            onFaultsCleared: snackbar.show(qsTr("Faults Cleared"))
            onAboutRequested: about.open()
            onPumpInformationRequested: pumpInformation.open()
        }

        Tabs {
            id: tabs
            objectName: "tabs"
            Layout.fillWidth: true
            Layout.fillHeight: true
            titles: [qsTr("Control"), qsTr("Setup"), qsTr("Maintenance")]
            warnings: screen.needNewPumpFirmware ? [screen.maintenanceTab] : []

            ControlTab {
                objectName: "controlTab"
            }
            SetupTab {
                objectName: "setupTab"
            }
            MaintenanceTab {
                objectName: "maintenanceTab"
                appVersion: screen.appVersion
                pumpAppVersion: screen.pumpAppVersion
            }
        }
    }

    Snackbar {
        id: snackbar
        objectName: "snackbar"
    }

    AboutOverlay {
        id: about
        objectName: "about"
        appVersion: screen.appVersion
    }
    FirmwareUpdatedOverlay {
        objectName: "firmwareUpdated"
    }
    PumpInfoOverlay {
        id: pumpInformation
        objectName: "pumpInformation"
        appVersion: screen.appVersion
    }
}
