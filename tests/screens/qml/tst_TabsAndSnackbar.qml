import QtQuick
import QtTest
import BwLib

Item {
    width: 600
    height: 400

    Tabs {
        id: tabs
        anchors.fill: parent
        titles: ["First", "Second", "Third"]
        warnings: [2]
        Rectangle { objectName: "page0" }
        Rectangle { objectName: "page1" }
        Rectangle { objectName: "page2" }
    }
    Snackbar {
        id: snackbar
    }

    TestCase {
        name: "TabsAndSnackbar"
        when: windowShown

        function test_aClickedTabShowsItsPageAndOnlyItsOwnWarning() {
            compare(tabs.currentIndex, 0)
            mouseClick(findChild(tabs, "tab1"))
            compare(tabs.currentIndex, 1)
            verify(findChild(tabs, "page1").visible)
            verify(!findChild(tabs, "page0").visible)
            verify(!findChild(findChild(tabs, "tab0"), "warningCircle").visible)
            verify(findChild(findChild(tabs, "tab2"), "warningCircle").visible)
            tabs.warnings = []
            verify(!findChild(findChild(tabs, "tab2"), "warningCircle").visible)
        }

        function test_snackbarShowsTheLatestMessageThenGoes() {
            verify(!snackbar.visible)
            snackbar.show("First")
            snackbar.show("Faults Cleared")
            verify(snackbar.visible)
            compare(snackbar.text, "Faults Cleared")
            tryVerify(() => !snackbar.visible, 5000)
        }
    }
}
