pragma Singleton
import QtQuick

// The palette. Screens name a colour by its role, never by its value.
QtObject {
    readonly property color background: "#ffffff"
    readonly property color primary: "#007a8c"
    readonly property color primaryDark: "#005266"
    readonly property color text: "#1d2428"
    readonly property color textMuted: "#5b676e"
    readonly property color divider: "#d6dde0"
    readonly property color warning: "#e0a100"
    readonly property color error: "#c62828"
}
