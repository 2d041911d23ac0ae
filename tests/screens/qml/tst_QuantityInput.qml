import QtQuick
import QtTest
import BwLib

// A quantity input shows the pump's value, refuses what it cannot send with a message, commits
// on Enter and on focus loss, reverts on Escape, and keeps following the pump after user input.
Item {
    width: 400
    height: 200

    property real pumpValue: 12.5

    QuantityInput {
        id: input
        label: "Speed"
        unit: "RPM"
        minimum: 0
        maximum: 100
        value: pumpValue
    }
    Item {
        id: elsewhere
        focus: true
        activeFocusOnTab: true
    }
    SignalSpy {
        id: commits
        target: input
        signalName: "committed"
    }

    TestCase {
        name: "QuantityInput"
        when: windowShown

        property var field: findChild(input, "quantityField")

        function init() {
            pumpValue = 12.5
            commits.clear()
            input.show()
        }
        function enter(text) {
            field.forceActiveFocus()
            field.selectAll()
            keyClick(Qt.Key_Backspace)
            for (const character of text)
                keyClick(character)
        }

        function test_showsThePumpValueWithItsDecimalsAndUnit() {
            compare(field.text, "12.5")
            pumpValue = 7
            compare(field.text, "7.0")
        }

        function test_enterCommitsAValidChangedValueOnly_data() {
            return [
                { tag: "point", typed: "50.5", commits: 1, value: 50.5, error: "" },
                { tag: "comma", typed: "50,5", commits: 1, value: 50.5, error: "" },
                { tag: "unchanged", typed: "12.50", commits: 0, value: 0, error: "" },
                { tag: "above", typed: "100.1", commits: 0, value: 0, error: "Speed must be between 0.0 and 100.0" },
                { tag: "below", typed: "-1", commits: 0, value: 0, error: "Speed must be between 0.0 and 100.0" },
                { tag: "text", typed: "fast", commits: 0, value: 0, error: "Enter a number" },
            ]
        }
        function test_enterCommitsAValidChangedValueOnly(data) {
            enter(data.typed)
            keyClick(Qt.Key_Return)
            compare(commits.count, data.commits)
            if (data.commits > 0)
                compare(commits.signalArguments[0][0], data.value)
            compare(input.errorText, data.error)
        }

        function test_escapeRevertsAndFocusLossCommits() {
            enter("80")
            keyClick(Qt.Key_Escape)
            compare(field.text, "12.5")
            compare(commits.count, 0)
            enter("81")
            elsewhere.forceActiveFocus()
            compare(commits.count, 1)
            compare(commits.signalArguments[0][0], 81)
        }

        function test_bindingSurvivesUserInput() {
            enter("30")
            keyClick(Qt.Key_Return)
            // The field shows the pump's value until the pump reports the new one.
            compare(field.text, "12.5")
            pumpValue = 30
            compare(field.text, "30.0")
            enter("oops")
            keyClick(Qt.Key_Return)
            pumpValue = 31 // while the user has text of their own there, it stays
            compare(field.text, "oops")
            keyClick(Qt.Key_Escape)
            compare(field.text, "31.0")
        }
    }
}
