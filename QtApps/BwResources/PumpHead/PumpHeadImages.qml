pragma Singleton
import QtQuick

// Pictures of the pump heads, by head type; filled in with the pump-head list.
QtObject {
    /// Image source for a head type, or an empty string when there is none.
    function source(headType) {
        return ""
    }
}
