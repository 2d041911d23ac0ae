pragma Singleton
import QtQuick

// Type sizes and weights; the family is the platform's default (its digits are of equal width,
// so changing figures do not jump).
QtObject {
    readonly property int small: 12
    readonly property int body: 14
    readonly property int label: 13
    readonly property int heading: 18
    readonly property int title: 24
    /// The big figure of a reading (the speed on the status panel).
    readonly property int figure: 28
    readonly property int banner: 40

    readonly property int normal: Font.Normal
    readonly property int medium: Font.Medium
    readonly property int bold: Font.DemiBold

    readonly property real bannerLetterSpacing: 4
    readonly property real wordMarkLetterSpacing: 8
}
