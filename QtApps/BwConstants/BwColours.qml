pragma Singleton
import QtQuick

// The palette. A calm grey base; colour only for what is abnormal (amber for a warning, red for
// a fault) and one accent for what the user acts on. Screens name a colour by its role, never by
// its value.
QtObject {
    /// Window and page background.
    readonly property color background: "#e8ebed"
    /// Panels, boxes and cards on the background.
    readonly property color surface: "#f6f7f8"
    /// Fields and raised controls.
    readonly property color surfaceRaised: "#ffffff"
    /// Hover and pressed tint of a neutral surface.
    readonly property color surfaceHover: "#dfe4e7"
    readonly property color border: "#c3cbd0"
    readonly property color divider: "#d5dbdf"

    readonly property color text: "#1c2327"
    readonly property color textMuted: "#56626a"
    readonly property color textDisabled: "#9aa4aa"
    /// Text on an accent, warning or error fill.
    readonly property color textOnFill: "#ffffff"

    /// What the user acts on: buttons, the selected tab, a switch that is on, focus.
    readonly property color accent: "#0a6a85"
    readonly property color accentPressed: "#07506a"
    readonly property color accentSurface: "#d9ecf2"
    readonly property color focusRing: "#1f86c9"

    readonly property color warning: "#b97d00"
    readonly property color warningSurface: "#fcf0cf"
    readonly property color error: "#c0262d"
    readonly property color errorSurface: "#f9dfe0"
    readonly property color disabled: "#c9d0d4"

    /// The side panel by its state: "default", "warning" or "error".
    function panelColour(state) {
        return state === "error" ? errorSurface : state === "warning" ? warningSurface : surface
    }
    /// The rule at the panel's edge by its state.
    function stateColour(state) {
        return state === "error" ? error : state === "warning" ? warning : border
    }
}
