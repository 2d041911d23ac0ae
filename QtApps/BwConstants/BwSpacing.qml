pragma Singleton
import QtQuick

// Sizes, spacings and durations shared by every screen.
QtObject {
    /// Smallest window the screens are laid out for.
    readonly property int appMinWidth: 960
    readonly property int appMinHeight: 540
    /// Pause before the connecting page appears, and the connected page's dwell.
    readonly property int connectingAnimationDuration: 800
    /// Fade of every start-up page change.
    readonly property int pageFadeDuration: 300
    readonly property int small: 8
    readonly property int medium: 16
    readonly property int large: 32
    readonly property int radius: 4
}
