pragma Singleton
import QtQuick

// Type sizes; the family is the platform's default.
QtObject {
    readonly property int body: 14
    readonly property int heading: 20
    readonly property int title: 32
    readonly property int banner: 40
}
