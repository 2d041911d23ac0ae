pragma Singleton
import QtQuick

// Every size and duration of the screens, on one 4-pixel scale.
QtObject {
    /// Smallest window the screens are laid out for.
    readonly property int appMinWidth: 960
    readonly property int appMinHeight: 540
    /// Height the side panel needs to show the logo below its buttons; a shorter panel leaves
    /// the logo out rather than cut it.
    readonly property int sidePanelLogoMinHeight: 640
    /// Pause before the connecting page appears, and the connected page's dwell.
    readonly property int connectingAnimationDuration: 800
    /// Fade of every start-up page change.
    readonly property int pageFadeDuration: 300
    /// How long a snackbar stays.
    readonly property int snackbarDuration: 3000
    /// Short transitions of controls (hover, press).
    readonly property int quickDuration: 120

    readonly property int xxs: 2
    readonly property int xs: 4
    readonly property int small: 8
    readonly property int medium: 16
    readonly property int large: 24
    readonly property int xl: 32

    readonly property int radius: 4
    readonly property int borderWidth: 1
    readonly property int focusWidth: 2
    readonly property int ruleWidth: 4

    /// Height of buttons, fields and combo boxes; wide enough to hit with a glove.
    readonly property int controlHeight: 36
    readonly property int buttonMinWidth: 88
    readonly property int fieldWidth: 112
    readonly property int fieldWideWidth: 200
    readonly property int labelWidth: 160
    readonly property int switchWidth: 44
    readonly property int switchHeight: 24
    readonly property int progressHeight: 8
    readonly property int scrollBarWidth: 8
    readonly property int tabHeight: 44
    readonly property int iconSmall: 16
    readonly property int icon: 20
    readonly property int iconLarge: 32
    readonly property int badge: 10

    /// Side panel, open and collapsed.
    readonly property int sidePanelWidth: 288
    readonly property int sidePanelCollapsedWidth: 76
    /// The widest a column of settings grows in a large window.
    readonly property int contentMaxWidth: 720
    /// A live plot's chart: its height in the smallest window, the share of a taller window's
    /// height it grows to, and the width of its lines.
    readonly property int plotHeight: 220
    readonly property real plotHeightShare: 0.35
    readonly property int plotLineWidth: 2
    /// A modal dialog's width.
    readonly property int dialogWidth: 440
    readonly property int snackbarWidth: 320
    readonly property int toolTipDelay: 500
    readonly property int toolTipWidth: 280
    /// How far beyond its view a short list keeps its entries built.
    readonly property int listCacheExtent: 4096

    /// The connecting page's plug and socket.
    readonly property int connectorWidth: 240
    readonly property int connectorHeight: 40
    readonly property int plugBodyWidth: 50
    readonly property int plugPinLength: 20
    readonly property int plugPinThickness: 6
    readonly property int plugTravel: 50
    readonly property int socketTravel: 70
}
